// The machine that the service runs on, as one struct of functions: each subject stands behind its own header here, and
// tests put a stand-in that records the calls in the place of kLinuxDevice.
#pragma once

#include "configd/linux/clock.h"
#include "configd/linux/errors.h"
#include "configd/linux/interfaces.h"
#include "configd/linux/leases.h"
#include "configd/linux/link.h"
#include "configd/linux/resolver.h"
#include "configd/linux/restart.h"
#include "configd/linux/routes.h"
#include "configd/linux/stations.h"
#include "configd/linux/time_zone.h"

// The promises of each function stand in its subject's header. An int result is 0 or an errno value: device::status_of.
struct Device {
    int (*read_interfaces)(std::vector<device::Interface>& table);
    int (*set_address)(const char* interface, std::uint32_t address, std::uint32_t netmask);
    int (*set_link_up)(const char* interface, bool up);
    int (*read_link)(const char* interface, device::Link& link);

    int (*read_routes)(std::vector<device::Route>& table);
    int (*add_route)(const device::Route& route);
    int (*delete_route)(const device::Route& route);

    std::int64_t (*read_clock)();
    int (*set_clock)(std::int64_t seconds);
    std::uint32_t (*read_up_time)();
    int (*set_time_zone)(const char* path, std::int32_t secondsEast);

    std::array<std::uint32_t, 2> (*read_name_servers)(const char* path);
    int (*set_name_servers)(const char* path, const std::array<std::uint32_t, 2>& servers);
    int (*read_leases)(const char* path, std::vector<device::Lease>& leases);
    int (*read_stations)(const char* controlSocket, std::vector<device::Station>& stations);

    int (*restart_machine)();
};

extern const Device kLinuxDevice;
