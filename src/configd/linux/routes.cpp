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
    const auto* path = static_cast<const rtnexthop*>(mnl_attr_get_payload(paths));
    int left = mnl_attr_get_payload_len(paths);
    for (; RTNH_OK(path, left); left -= RTNH_ALIGN(path->rtnh_len), path = RTNH_NEXT(path)) {
        Attributes<RTA_MAX> attributes;
        const std::size_t length = path->rtnh_len - sizeof *path;
        if (mnl_attr_parse_payload(path + 1, length, attributes.keep, &attributes) < 0) return;
        route.index = static_cast<std::uint32_t>(path->rtnh_ifindex);
        route.gateway = ntohl(attributes.u32(RTA_GATEWAY));
        keep_path(routes, route);
    }
}

int keep_route(const nlmsghdr* message, void* data)
{
    if (message->nlmsg_type != RTM_NEWROUTE) return MNL_CB_OK;
    const auto* head = static_cast<const rtmsg*>(mnl_nlmsg_get_payload(message));
    if (head->rtm_family != AF_INET || head->rtm_type != RTN_UNICAST) return MNL_CB_OK;
    Attributes<RTA_MAX> attributes;
    if (mnl_attr_parse(message, sizeof *head, attributes.keep, &attributes) < 0) return MNL_CB_OK;
    const std::uint32_t table = attributes.of[RTA_TABLE] ? attributes.u32(RTA_TABLE) : head->rtm_table;
    if (table != RT_TABLE_MAIN || (head->rtm_flags & RTM_F_CLONED)) return MNL_CB_OK;

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
    return MNL_CB_OK;
}

nlmsghdr* begin_request(void* room, std::uint16_t operation, rtmsg*& head)
{
    nlmsghdr* request = mnl_nlmsg_put_header(room);
    request->nlmsg_type = operation;
    head = static_cast<rtmsg*>(mnl_nlmsg_put_extra_header(request, sizeof(rtmsg)));
    head->rtm_family = AF_INET;
    head->rtm_table = RT_TABLE_MAIN;
    return request;
}

void put_route(nlmsghdr* request, rtmsg* head, const KernelRoute& route)
{
    head->rtm_dst_len = route.prefix;
    if (route.prefix > 0) mnl_attr_put_u32(request, RTA_DST, htonl(route.destination));
    if (route.gateway != 0) mnl_attr_put_u32(request, RTA_GATEWAY, htonl(route.gateway));
    if (route.index != 0) mnl_attr_put_u32(request, RTA_OIF, route.index);
    if (route.metric != 0) mnl_attr_put_u32(request, RTA_PRIORITY, route.metric);
}

int read_kernel_routes(std::vector<KernelRoute>& routes)
{
    alignas(nlmsghdr) char room[kRequestSize];
    rtmsg* head;
    return netlink_read(begin_request(room, RTM_GETROUTE, head), keep_route, routes);
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

    alignas(nlmsghdr) char room[kRequestSize];
    rtmsg* head;
    nlmsghdr* request = begin_request(room, RTM_NEWROUTE, head);
    request->nlmsg_flags = NLM_F_CREATE | NLM_F_EXCL;
    head->rtm_type = RTN_UNICAST;
    head->rtm_protocol = RTPROT_STATIC;
    head->rtm_scope = kernel.gateway != 0 ? RT_SCOPE_UNIVERSE : RT_SCOPE_LINK;
    put_route(request, head, kernel);
    return netlink_change(request);
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

    alignas(nlmsghdr) char room[kRequestSize];
    rtmsg* head;
    nlmsghdr* request = begin_request(room, RTM_DELROUTE, head);
    head->rtm_protocol = found->protocol;
    head->rtm_scope = RT_SCOPE_NOWHERE;  // any
    put_route(request, head, *found);
    return netlink_change(request);
}
}  // namespace device
