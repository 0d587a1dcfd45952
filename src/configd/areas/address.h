// The address of the LAN and of the WAN side as it is in force: the settings', or the interface's where it is obtained
// automatically.
#pragma once

#include <cstdint>

#include "configd/ports.h"

struct NetworkAddress {
    std::uint32_t address, netmask;  // host order; 0: none
};
NetworkAddress lan_address(const Service& service, const Ports& ports);
NetworkAddress wan_address(const Service& service, const Ports& ports);

// The name servers that were set for the LAN or that the machine asks; 0: none.
std::array<std::uint32_t, 2> name_servers(const Service& service);

// The default route through the router that the LAN's settings name; gateway 0: they name none.
device::Route lan_default_route(const Service& service);

// Gives the machine the address, the router and the name server of the LAN where the profile leaves that to the
// service. 0 or an errno value.
int apply_lan_address(const Service& service);
