// The machine as a test describes it, in the place of Linux: what is read comes from here, what is changed is noted
// here.
#pragma once

#include <cerrno>
#include <cstring>

#include "configd/linux/device.h"

struct Machine {
    std::vector<device::Interface> interfaces;
    std::vector<device::Route> routes;
    std::array<std::uint32_t, 2> nameServers{};
    int error = 0;  // what every change is refused with
    std::uint32_t addressSet = 0;
    int restarts = 0;
};
inline Machine machine;

inline device::Interface interface_named(const char* name, unsigned char lastOfMac, std::uint32_t address = 0)
{
    device::Interface made{};
    std::strncpy(made.name, name, sizeof made.name - 1);
    made.kind = device::Kind::kEthernet;
    made.up = made.running = true;
    made.mac = {2, 0, 0x5e, 0x10, 0, lastOfMac};
    made.address = address;
    made.netmask = address ? 0xFFFFFF00 : 0;
    return made;
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
    .add_route = [](const device::Route&) { return machine.error; },
    .delete_route = [](const device::Route&) { return machine.error; },
    .read_clock = []() -> std::int64_t { return 1'000'000'000; },
    .set_clock = [](std::int64_t) { return machine.error; },
    .read_up_time = []() -> std::uint32_t { return 90061; },
    .read_name_servers = [](const char*) { return machine.nameServers; },
    .read_leases = [](const char*, std::vector<device::Lease>&) { return ENOENT; },
    .read_stations = [](const char*, std::vector<device::Station>&) { return ENOENT; },
    .restart_machine =
        []() {
            machine.restarts += machine.error == 0;
            return machine.error;
        },
};
