// The routing table: the kernel's, with the hop counts of the static routes that are set here.
#include "service/fields/routes.h"

#include <cstring>

#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
constexpr std::size_t kMostRoutes = 32;
constexpr int kMostHops = 255;
constexpr std::uint8_t kTarget = 0;  // destination and netmask together name a route

// clang-format off
constexpr Column kColumns[] = {
    {row::address("destination", route_entry::destination, 0), route_request::destination.at, kTarget},
    {row::address("netmask",     route_entry::netmask,     0), route_request::netmask.at,     kTarget},
    {row::address("gateway",     route_entry::gateway,     0), route_request::gateway.at},
    {row::text   ("interface",   route_entry::interface),      route_request::interface.at},
    {row::number ("hops",        route_entry::hops, {.min = 0, .max = kMostHops, .factory = 0}), route_request::hops.at},
};
constexpr Identity kIdentities[] = {{kStatusDuplicateAddress, kStatusUnknownAddress}};
constexpr List kLists[] = {{"routes", kColumns, kIdentities, route_entry::kSize, kMostRoutes}};
// clang-format on

std::uint32_t hops_of(const device::Route& route, const std::vector<Entry>& configured)
{
    for (const Entry& entry : configured) {
        const unsigned char* bytes = entry.bytes.data();
        if (route_entry::destination.get(bytes) == route.destination &&
            route_entry::netmask.get(bytes) == route.netmask)
            return route_entry::hops.get(bytes);
    }
    return route.metric;
}

void give_route(const device::Route& route, std::uint32_t hops, unsigned char* entry)
{
    route_entry::interface.set(entry, route.interface);
    route_entry::destination.set(entry, route.destination);
    route_entry::netmask.set(entry, route.netmask);
    route_entry::gateway.set(entry, route.gateway);
    route_entry::hops.set(entry, hops);
    route_entry::flags.set(entry, route.flags);
}

ServiceStatus read_routes(Call& call)
{
    std::vector<device::Route> routes;
    if (const int error = call.service.device.read_routes(routes)) return device::status_of(error);

    const std::vector<Entry>& configured = call.service.store.running().entries(kLists[0]);
    call.answer.table.resize(routes.size() * route_entry::kSize);
    unsigned char* entry = call.answer.table.data();
    for (const device::Route& route : routes) {
        give_route(route, hops_of(route, configured), entry);
        entry += route_entry::kSize;
    }
    return kStatusOk;
}

constexpr Operation kOperations[] = {
    {.code = code::kReadRoutes, .run = read_routes},
};
}  // namespace

const Area kRouteArea{.sections = {}, .lists = kLists, .operations = kOperations};
