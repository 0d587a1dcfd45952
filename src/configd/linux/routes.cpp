#include "configd/linux/routes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <bit>
#include <iterator>
#include <linux/rtnetlink.h>
#include <net/if.h>

#include "configd/linux/netlink.h"

namespace device {
namespace {
// A route as the kernel has it: what is needed to name this very one when it is deleted.
struct KernelRoute {
    std::uint32_t destination, gateway, index, metric;
    std::uint8_t prefix, protocol;
};

void keep_path(std::vector<KernelRoute>& routes, const KernelRoute& route)
{
    if (routes.size() < kMaxRoutes) routes.push_back(route);
}

// A route of several paths: each path has its own interface and gateway.
void keep_paths(std::vector<KernelRoute>& routes, KernelRoute route, const nlattr* paths)
{
    auto* path = static_cast<rtnexthop*>(nla_data(paths));
    int left = nla_len(paths);
    for (; RTNH_OK(path, left); left -= RTNH_ALIGN(path->rtnh_len), path = RTNH_NEXT(path)) {
        Attributes<RTA_MAX> attributes;
        if (!attributes.parse(path + 1, path->rtnh_len - sizeof *path)) return;
        route.index = static_cast<std::uint32_t>(path->rtnh_ifindex);
        route.gateway = ntohl(attributes.u32(RTA_GATEWAY));
        keep_path(routes, route);
    }
}

void keep_route(nlmsghdr* message, void* data)
{
    const auto* head = static_cast<const rtmsg*>(nlmsg_data(message));
    Attributes<RTA_MAX> attributes;
    if (message->nlmsg_type != RTM_NEWROUTE || !attributes.parse(message, sizeof *head)) return;
    if (head->rtm_family != AF_INET || head->rtm_type != RTN_UNICAST) return;
    const std::uint32_t table = attributes.of[RTA_TABLE] ? attributes.u32(RTA_TABLE) : head->rtm_table;
    if (table != RT_TABLE_MAIN || (head->rtm_flags & RTM_F_CLONED)) return;

    auto& routes = *static_cast<std::vector<KernelRoute>*>(data);
    const KernelRoute route{.destination = ntohl(attributes.u32(RTA_DST)),
                            .gateway = ntohl(attributes.u32(RTA_GATEWAY)),
                            .index = attributes.u32(RTA_OIF),
                            .metric = attributes.u32(RTA_PRIORITY),
                            .prefix = head->rtm_dst_len,
                            .protocol = head->rtm_protocol};
    if (attributes.of[RTA_MULTIPATH])
        keep_paths(routes, route, attributes.of[RTA_MULTIPATH]);
    else
        keep_path(routes, route);
}

rtmsg main_table()
{
    rtmsg head{};
    head.rtm_family = AF_INET;
    head.rtm_table = RT_TABLE_MAIN;
    return head;
}

int change_route(int operation, int flags, rtmsg head, const KernelRoute& route)
{
    head.rtm_dst_len = route.prefix;
    Request request(operation, head, flags);
    if (route.prefix > 0) request.put_u32(RTA_DST, htonl(route.destination));
    if (route.gateway != 0) request.put_u32(RTA_GATEWAY, htonl(route.gateway));
    if (route.index != 0) request.put_u32(RTA_OIF, route.index);
    if (route.metric != 0) request.put_u32(RTA_PRIORITY, route.metric);
    return netlink_change(request);
}

int read_kernel_routes(std::vector<KernelRoute>& routes)
{
    return netlink_read(Request(RTM_GETROUTE, main_table()), keep_route, routes);
}

// EINVAL and ENODEV as add_route promises.
int to_kernel(const Route& route, KernelRoute& kernel)
{
    const auto prefix = static_cast<std::uint8_t>(std::popcount(route.netmask));
    if (netmask_of(prefix) != route.netmask || (route.destination & ~route.netmask) != 0) return EINVAL;
    kernel = {.destination = route.destination,
              .gateway = route.gateway,
              .index = 0,
              .metric = route.metric,
              .prefix = prefix,
              .protocol = RTPROT_STATIC};
    if (route.interface[0] == '\0') return 0;
    kernel.index = if_nametoindex(route.interface);
    return kernel.index == 0 ? ENODEV : 0;
}

bool same_destination(const KernelRoute& asked, const KernelRoute& one)
{
    return asked.destination == one.destination && asked.prefix == one.prefix &&
           (asked.gateway == 0 || asked.gateway == one.gateway) && (asked.index == 0 || asked.index == one.index) &&
           (asked.metric == 0 || asked.metric == one.metric);
}

Route to_route(const KernelRoute& kernel)
{
    Route route{.destination = kernel.destination,
                .netmask = netmask_of(kernel.prefix),
                .gateway = kernel.gateway,
                .metric = kernel.metric,
                .flags = kRouteUp,
                .connected = kernel.protocol == RTPROT_KERNEL};
    if (kernel.gateway != 0) route.flags |= kRouteGateway;
    if (kernel.prefix == 32) route.flags |= kRouteHost;
    if (kernel.protocol == RTPROT_REDIRECT) route.flags |= kRouteDynamic;
    if (!if_indextoname(kernel.index, route.interface)) route.interface[0] = '\0';  // it went away meanwhile
    return route;
}
}  // namespace

int read_routes(std::vector<Route>& table)
{
    table.clear();
    std::vector<KernelRoute> routes;
    const int error = read_kernel_routes(routes);
    std::ranges::transform(routes, std::back_inserter(table), to_route);
    return error;
}

int add_route(const Route& route)
{
    KernelRoute kernel;
    if (const int error = to_kernel(route, kernel); error != 0) return error;
    if (kernel.gateway == 0 && kernel.index == 0) return EINVAL;

    rtmsg head = main_table();
    head.rtm_type = RTN_UNICAST;
    head.rtm_protocol = RTPROT_STATIC;
    head.rtm_scope = kernel.gateway != 0 ? RT_SCOPE_UNIVERSE : RT_SCOPE_LINK;
    return change_route(RTM_NEWROUTE, NLM_F_CREATE | NLM_F_EXCL, head, kernel);
}

int delete_route(const Route& route)
{
    KernelRoute asked;
    if (const int error = to_kernel(route, asked); error != 0) return error;
    std::vector<KernelRoute> routes;
    if (const int error = read_kernel_routes(routes); error != 0) return error;

    const auto fits = [&](const KernelRoute& one) { return same_destination(asked, one); };
    const auto free = [&](const KernelRoute& one) { return fits(one) && one.protocol != RTPROT_KERNEL; };
    const auto found = std::ranges::find_if(routes, free);
    if (found == routes.end()) return std::ranges::any_of(routes, fits) ? EPERM : ESRCH;

    rtmsg head = main_table();
    head.rtm_protocol = found->protocol;
    head.rtm_scope = RT_SCOPE_NOWHERE;  // any
    return change_route(RTM_DELROUTE, 0, head, *found);
}
}  // namespace device
