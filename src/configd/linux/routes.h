// The kernel's main IPv4 routing table, read and changed through netlink in the network namespace that the service runs
// in.
#pragma once

#include <cstdint>
#include <vector>

#include "configd/linux/interfaces.h"

namespace device {
// The bits of <linux/route.h> that an entry of the main table can have. The kernel no longer tells a reinstated or a
// modified route: those two never occur.
enum RouteFlag : std::uint32_t { kRouteUp = 0x1, kRouteGateway = 0x2, kRouteHost = 0x4, kRouteDynamic = 0x10 };

struct Route {
    std::uint32_t destination = 0, netmask = 0;  // host order; 0/0: the default route
    std::uint32_t gateway = 0;                   // 0: the network is directly on the interface
    char interface[kInterfaceNameSize] = "";
    std::uint32_t metric = 0;
    std::uint32_t flags = 0;  // RouteFlag; read only
    bool connected = false;   // the kernel made it with an interface's address; read only
};

inline constexpr std::size_t kMaxRoutes = 16384;  // what one answer of the service can carry, with room to spare

// All below answer 0 or an errno value.

// In the kernel's order, a route of several paths as several rows; what lies behind kMaxRoutes is left out. On failure
// the table is empty.
int read_routes(std::vector<Route>& table);

// Needs a gateway, an interface or both. ENODEV: no such interface, ENETUNREACH or ENETDOWN: the gateway cannot be
// reached, EEXIST: it is there already, EINVAL: a destination outside its netmask, or a netmask with holes.
int add_route(const Route& route);

// The first route to that destination and netmask; a gateway, interface or metric narrows it when given. ESRCH: there
// is none, EPERM: only a connected one, which goes with its interface's address.
int delete_route(const Route& route);
}  // namespace device
