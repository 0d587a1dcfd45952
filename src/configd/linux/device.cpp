#include "configd/linux/device.h"

const Device kLinuxDevice{
    .read_interfaces = device::read_interfaces,
    .set_address = device::set_address,
    .set_link_up = device::set_link_up,
    .read_link = device::read_link,
    .read_routes = device::read_routes,
    .add_route = device::add_route,
    .delete_route = device::delete_route,
    .read_clock = device::read_clock,
    .set_clock = device::set_clock,
    .read_up_time = device::read_up_time,
    .set_time_zone = device::set_time_zone,
    .read_name_servers = device::read_name_servers,
    .set_name_servers = device::set_name_servers,
    .read_leases = device::read_leases,
    .read_stations = device::read_stations,
    .restart_machine = device::restart_machine,
};
