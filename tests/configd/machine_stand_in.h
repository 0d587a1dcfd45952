// The machine as a test describes it, in the place of Linux: what is read comes from here, what is changed is noted
// here.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "configd/linux/device.h"

struct Machine {
    std::vector<device::Interface> interfaces;
    std::vector<device::Route> routes;
    std::array<std::uint32_t, 2> nameServers{};
    int error = 0;       // what every change is refused with
    int routeError = 0;  // what a new route is refused with
    std::uint32_t addressSet = 0;
    int restarts = 0;
    std::int64_t clock = 1'000'000'000;
};
inline Machine machine;

inline device::Interface interface_named(const char* name, unsigned char lastOfMac, std::uint32_t address = 0)
{
    device::Interface made{};
    std::snprintf(made.name, sizeof made.name, "%s", name);
    made.kind = device::Kind::kEthernet;
    made.up = made.running = true;
    made.mac = {2, 0, 0x5e, 0x10, 0, lastOfMac};
    made.address = address;
    made.netmask = address ? 0xFFFFFF00 : 0;
    return made;
}

// As the kernel tells routes apart.
inline std::vector<device::Route>::iterator find_route(const device::Route& route)
{
    return std::ranges::find_if(machine.routes, [&](const device::Route& each) {
        return each.destination == route.destination && each.netmask == route.netmask && each.metric == route.metric;
    });
}

inline constexpr Device kMachineStandIn{
    .read_interfaces =
        [](std::vector<device::Interface>& table) {
            table = machine.interfaces;
            return 0;
        },
    .set_address =
        [](const char*, std::uint32_t address, std::uint32_t) {
            if (machine.error == 0) machine.addressSet = address;
            return machine.error;
        },
    .set_link_up = [](const char*, bool) { return machine.error; },
    .read_link = [](const char*, device::Link&) { return ENODEV; },
    .read_routes =
        [](std::vector<device::Route>& table) {
            table = machine.routes;
            return 0;
        },
    .add_route =
        [](const device::Route& route) {
            if (machine.error != 0) return machine.error;
            if (machine.routeError != 0) return machine.routeError;
            if (find_route(route) != machine.routes.end()) return EEXIST;
            machine.routes.push_back(route);
            machine.routes.back().flags = device::kRouteUp;
            return 0;
        },
    .delete_route =
        [](const device::Route& route) {
            if (machine.error != 0) return machine.error;
            const auto found = find_route(route);
            if (found == machine.routes.end()) return ESRCH;
            machine.routes.erase(found);
            return 0;
        },
    .read_clock = []() -> std::int64_t { return machine.clock; },
    .set_clock =
        [](std::int64_t seconds) {
            if (machine.error == 0) machine.clock = seconds;
            return machine.error;
        },
    .read_up_time = []() -> std::uint32_t { return 90061; },
    .set_time_zone = [](const char*, std::int32_t) { return machine.error; },
    .read_name_servers = [](const char*) { return machine.nameServers; },
    .set_name_servers =
        [](const char*, const std::array<std::uint32_t, 2>& servers) {
            if (machine.error == 0) machine.nameServers = servers;
            return machine.error;
        },
    .read_leases = [](const char*, std::vector<device::Lease>&) { return ENOENT; },
    .read_stations = [](const char*, std::vector<device::Station>&) { return ENOENT; },
    .restart_machine =
        []() {
            machine.restarts += machine.error == 0;
            return machine.error;
        },
};
