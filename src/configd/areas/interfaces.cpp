// The interface table: the profile's ports, then what else this machine has.
#include "configd/areas/interfaces.h"

#include "configd/areas/address.h"
#include "configd/areas/areas.h"
#include "configd/areas/ping.h"
#include "configd/ports.h"
#include "service/codes.h"
#include "service/fields/interfaces.h"

namespace {
struct Shown {
    const char* name;
    const char* port;
    device::Kind kind;
    device::Mac mac;
    const device::Interface* real;  // nullptr: the machine does not have it
    std::uint32_t flags;
    NetworkAddress address;
};

constexpr std::uint32_t kUsualMtu = 1500;  // of an interface that this machine does not have

NetworkAddress address_of(const device::Interface& interface) { return {interface.address, interface.netmask}; }

// The sides of the router have the address that is in force for them, whatever the machine has at the moment.
NetworkAddress address_of(const Service& service, const Ports& ports, const ProfilePort& port)
{
    if (&port == port_of_role(service.profile, PortRole::kLan)) return lan_address(service, ports);
    if (&port == port_of_role(service.profile, PortRole::kWan)) return wan_address(service, ports);
    const device::Interface* real = ports.find(port.interface);
    return real ? address_of(*real) : NetworkAddress{};
}

std::uint32_t flags_of(const Profile& profile, const std::string& interface, PortRole role)
{
    if (role == PortRole::kWan) return interface_entry::kWan;
    const ProfilePort* lan = port_of_role(profile, PortRole::kLan);
    const bool isLan = profile.bridge.empty() ? lan && lan->interface == interface : profile.bridge == interface;
    return isLan ? interface_entry::kSystemLan : 0;
}

void append(const Shown& shown, Bytes& table)
{
    table.resize(table.size() + interface_entry::kSize);
    unsigned char* entry = table.data() + table.size() - interface_entry::kSize;
    interface_entry::type.set(entry, static_cast<std::uint8_t>(shown.kind));
    interface_entry::flags.set(entry, shown.flags);
    interface_entry::state.set(entry, shown.real && shown.real->running ? interface_entry::kUp : 0);
    interface_entry::mtu.set(entry, shown.real ? shown.real->mtu : kUsualMtu);
    interface_entry::address.set(entry, shown.address.address);
    interface_entry::netmask.set(entry, shown.address.netmask);
    interface_entry::name.set(entry, shown.name);
    interface_entry::port.set(entry, shown.port);
    interface_entry::mac.set(entry, shown.mac.data());
}

void append_ports(const Service& service, const Ports& ports, Bytes& table)
{
    const Profile& profile = service.profile;
    for (const ProfilePort& port : profile.ports) {
        const device::Interface* real = ports.find(port.interface);
        append({.name = port.interface.c_str(),
                .port = port.name.c_str(),
                .kind = port.kind,
                .mac = real ? real->mac : port.mac,
                .real = real,
                .flags = flags_of(profile, port.interface, port.role),
                .address = address_of(service, ports, port)},
               table);
    }
}

void append_others(const Profile& profile, const Ports& ports, Bytes& table)
{
    for (const device::Interface& each : ports.interfaces()) {
        if (each.kind == device::Kind::kOther || port_of_interface(profile, each.name)) continue;
        append({.name = each.name,
                .port = each.name,
                .kind = each.kind,
                .mac = each.mac,
                .real = &each,
                .flags = flags_of(profile, each.name, PortRole::kNone),
                .address = address_of(each)},
               table);
    }
}

Bytes interface_table(const Service& service)
{
    const Ports ports(service);
    Bytes table;
    append_ports(service, ports, table);
    append_others(service.profile, ports, table);
    return table;
}

ServiceStatus read_interfaces(Call& call)
{
    call.answer.table = interface_table(call.service);
    mark_ping_allowance(call.service, call.answer.table);
    return kStatusOk;
}

// The same table with its number of entries.
ServiceStatus read_interface_list(Call& call)
{
    const ServiceStatus status = read_interfaces(call);
    const std::size_t entries = call.answer.table.size() / interface_entry::kSize;
    interface_record::count.set(call.answer.record, static_cast<std::uint16_t>(entries));
    return status;
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadPort,       .run = read_interfaces},
    {.code = code::kReadInterfaces, .run = read_interface_list},
};
// clang-format on
}  // namespace

const Area kInterfacesArea{.sections = {}, .lists = {}, .operations = kOperations};

std::vector<std::string> interface_names(const Service& service)
{
    Bytes table = interface_table(service);
    std::vector<std::string> names;
    for (std::size_t at = 0; at < table.size(); at += interface_entry::kSize)
        names.emplace_back(interface_entry::name.get(table.data() + at));
    return names;
}
