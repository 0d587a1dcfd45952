// The routing table: the kernel's. A static route that is added here goes to the kernel first, and to the configuration
// once the kernel has taken it; its hop count is its metric there. One that the kernel does not hold at the moment,
// because its interface is off or gone, is shown behind the others without any flag; so is the LAN's router where the
// machine's addresses are not the service's business.
#include "configd/areas/routes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <bit>
#include <cstring>

#include "configd/areas/address.h"
#include "configd/areas/areas.h"
#include "configd/areas/ipv4.h"
#include "configd/log.h"
#include "configd/ports.h"
#include "service/codes.h"
#include "service/fields/routes.h"

namespace {
using Table = std::vector<device::Route>;

constexpr std::size_t kMostRoutes = 32;
constexpr int kMostHops = 255;
constexpr std::uint8_t kTarget = 0;  // destination and netmask together name a route

// clang-format off
constexpr Column kColumns[] = {
    {row::address("destination", route_entry::destination, 0),             route_request::destination.at, kTarget},
    {row::address("netmask",     route_entry::netmask,     0, is_netmask), route_request::netmask.at,     kTarget},
    {row::address("gateway",     route_entry::gateway,     0),             route_request::gateway.at},
    {row::text   ("interface",   route_entry::interface),                  route_request::interface.at},
    {row::number ("hops",        route_entry::hops, {.min = 0, .max = kMostHops, .factory = 0}), route_request::hops.at},
};
constexpr Identity kIdentities[] = {{kStatusDuplicateAddress, kStatusUnknownAddress}};
constexpr List kLists[] = {{"routes", kColumns, kIdentities, route_entry::kSize, kMostRoutes}};
constexpr const List& kRoutes = kLists[0];
// clang-format on

device::Route route_of(const Entry& entry)
{
    const unsigned char* bytes = entry.bytes.data();
    device::Route route{.destination = route_entry::destination.get(bytes),
                        .netmask = route_entry::netmask.get(bytes),
                        .gateway = route_entry::gateway.get(bytes),
                        .metric = route_entry::hops.get(bytes)};
    const std::size_t length = route_entry::interface.length(bytes);
    std::memcpy(route.interface, bytes + route_entry::interface.at.offset,
                std::min(length, sizeof route.interface - 1));
    return route;
}

Entry entry_of(const device::Route& route)
{
    Entry entry{Bytes(route_entry::kSize, 0), {}};
    unsigned char* bytes = entry.bytes.data();
    route_entry::interface.set(bytes, route.interface);
    route_entry::destination.set(bytes, route.destination);
    route_entry::netmask.set(bytes, route.netmask);
    route_entry::gateway.set(bytes, route.gateway);
    route_entry::hops.set(bytes, route.metric);
    return entry;
}

const std::vector<Entry>& static_routes(const Service& service) { return service.store.running().entries(kRoutes); }

bool same_target(const device::Route& a, const device::Route& b)
{
    return a.destination == b.destination && a.netmask == b.netmask;
}

// Where a route names no interface, the kernel has found it by the gateway.
bool is_kernels(const device::Route& route, const device::Route& inKernel)
{
    return same_target(route, inKernel) && !inKernel.connected && route.gateway == inKernel.gateway &&
           route.metric == inKernel.metric &&
           (route.interface[0] == '\0' || std::strcmp(route.interface, inKernel.interface) == 0);
}

bool holds(const Table& table, const device::Route& route)
{
    return std::ranges::any_of(table, [&](const device::Route& each) { return is_kernels(route, each); });
}

void append_row(const device::Route& route, Bytes& rows)
{
    const Entry entry = entry_of(route);
    rows.insert(rows.end(), entry.bytes.begin(), entry.bytes.end());
    route_entry::flags.set(rows.data() + rows.size() - route_entry::kSize, route.flags);
}

ServiceStatus read_routes(Call& call)
{
    Table table;
    if (const int error = call.service.device.read_routes(table)) return device::status_of(error);

    Bytes& rows = call.answer.table;
    for (const device::Route& route : table) append_row(route, rows);
    for (const Entry& entry : static_routes(call.service)) {
        const device::Route route = route_of(entry);
        if (!holds(table, route)) append_row(route, rows);
    }
    const device::Route lan = lan_default_route(call.service);
    if (lan.gateway != 0 && !holds(table, lan)) append_row(lan, rows);
    return kStatusOk;
}

// The route that the request describes, when it can be one.
ServiceStatus requested_route(const ComParam& request, device::Route& route)
{
    route = {.destination = route_request::destination.get(request),
             .netmask = route_request::netmask.get(request),
             .gateway = route_request::gateway.get(request),
             .metric = route_request::hops.get(request)};
    if (!is_netmask(route.netmask)) return kStatusNetmaskRefused;
    if ((route.destination & ~route.netmask) != 0) return kStatusNotANetwork;
    if (route.metric > kMostHops) return kStatusTooManyHops;

    const std::size_t length = route_request::interface.length(request);
    if (length >= sizeof route.interface) return kStatusUnknownInterface;
    std::memcpy(route.interface, request.bytes + route_request::interface.at.offset, length);
    if (route.gateway == 0 ? length == 0 : !is_host(route.gateway)) return kStatusGatewayRefused;

    const Entry entry = entry_of(route);
    const auto taken = [&](const Column& column) {
        return takes(column.setting, entry.bytes.data() + column.setting.at.offset);
    };
    return std::ranges::all_of(kColumns, taken) ? kStatusOk : kStatusValueRefused;
}

// The kernel would take such a gateway, and the packets would go nowhere.
bool is_own_address(const Service& service, std::uint32_t address)
{
    const Ports ports(service);
    const auto hasIt = [address](const device::Interface& each) { return each.address == address; };
    return address != 0 && std::ranges::any_of(ports.interfaces(), hasIt);
}

// What the kernel means by its refusal of a route that requested_route has let through.
ServiceStatus refusal_of(int error, const device::Route& route)
{
    if (error == ENETDOWN) return kStatusInterfaceDown;
    if (error == EINVAL && route.gateway != 0) return kStatusGatewayRefused;  // a broadcast address, say
    return device::status_of(error);
}

ServiceStatus add_route(Call& call)
{
    Service& service = call.service;
    device::Route route;
    if (const ServiceStatus refused = requested_route(call.request, route)) return refused;
    if (is_own_address(service, route.gateway)) return kStatusGatewayRefused;
    Configuration next = service.store.running();
    if (const ServiceStatus refused = add_entry(kRoutes, next.entries(kRoutes), entry_of(route))) return refused;

    // The kernel would take a second one with another metric, and the first of them would be the one that counts.
    Table table;
    if (const int error = service.device.read_routes(table)) return device::status_of(error);
    if (std::ranges::any_of(table, [&](const device::Route& each) { return same_target(route, each); }))
        return kStatusDuplicateAddress;

    if (const int error = service.device.add_route(route)) return refusal_of(error, route);
    const ServiceStatus stored = service.store.change(std::move(next));
    if (stored != kStatusOk) service.device.delete_route(route);
    return stored;
}

ServiceStatus delete_static_route(Service& service, std::size_t index, const Table& table)
{
    Configuration next = service.store.running();
    std::vector<Entry>& entries = next.entries(kRoutes);
    const device::Route route = route_of(entries[index]);
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index));

    const bool isHeld = holds(table, route);
    if (isHeld)
        if (const int error = service.device.delete_route(route)) return device::status_of(error);
    const ServiceStatus stored = service.store.change(std::move(next));
    if (stored != kStatusOk && isHeld) service.device.add_route(route);
    return stored;
}

// A route that somebody else added to the kernel is deleted as well: the operator sees it in the table, and it may
// stand in the way of another. Who added it may bring it back. One that came with an interface's address goes with
// that.
ServiceStatus delete_kernel_route(const Service& service, const device::Route& asked, const Table& table)
{
    const auto fits = [&](const device::Route& each) { return same_target(asked, each); };
    const auto fitsAndIsFree = [&](const device::Route& each) { return fits(each) && !each.connected; };
    const auto found = std::ranges::find_if(table, fitsAndIsFree);
    if (found != table.end()) return device::status_of(service.device.delete_route(*found));
    return std::ranges::any_of(table, fits) ? kStatusConnectedRoute : kIdentities[kTarget].unknown;
}

ServiceStatus delete_route(Call& call)
{
    Table table;
    if (const int error = call.service.device.read_routes(table)) return device::status_of(error);

    const device::Route asked{.destination = route_request::destination.get(call.request),
                              .netmask = route_request::netmask.get(call.request)};
    const std::vector<Entry>& entries = static_routes(call.service);
    const std::size_t index = find_entry(kRoutes, entries, kTarget, entry_of(asked).bytes);
    return index < entries.size() ? delete_static_route(call.service, index, table)
                                  : delete_kernel_route(call.service, asked, table);
}

void report(const char* what, const device::Route& route, int error)
{
    if (error == 0) return;
    char destination[INET_ADDRSTRLEN];
    const in_addr address{htonl(route.destination)};
    inet_ntop(AF_INET, &address, destination, sizeof destination);
    log_line(LOG_WARNING, "the route to %s/%d could not be %s: %s", destination, std::popcount(route.netmask), what,
             std::strerror(error));
}

bool read_table(const Service& service, Table& table)
{
    const int error = service.device.read_routes(table);
    if (error != 0) log_line(LOG_ERR, "the routing table: %s", std::strerror(error));
    return error == 0;
}

constexpr Operation kOperations[] = {
    {.code = code::kReadRoutes, .run = read_routes},
    {.code = code::kAddRoute, .run = add_route},
    {.code = code::kDeleteRoute, .run = delete_route},
};
}  // namespace

const Area kRouteArea{.sections = {}, .lists = kLists, .operations = kOperations};

void restore_routes(const Service& service)
{
    Table table;
    if (static_routes(service).empty() || !read_table(service, table)) return;
    for (const Entry& entry : static_routes(service)) {
        const device::Route route = route_of(entry);
        if (!holds(table, route)) report("restored", route, service.device.add_route(route));
    }
}

void replace_routes(const Service& service, const Configuration& before)
{
    const std::vector<Entry>& entries = static_routes(service);
    const auto stays = [&](const Entry& old) {
        return std::ranges::find(entries, old.bytes, &Entry::bytes) != entries.end();
    };
    Table table;
    if (!read_table(service, table)) return;
    for (const Entry& old : before.entries(kRoutes)) {
        const device::Route route = route_of(old);
        if (!stays(old) && holds(table, route)) report("taken out", route, service.device.delete_route(route));
    }
    restore_routes(service);
}
