// The interface table: the profile's ports, then what else this machine has.
#include "service/fields/interfaces.h"

#include "configd/areas/areas.h"
#include "configd/ports.h"
#include "service/codes.h"

namespace {
struct Shown {
    const char* name;
    const char* port;
    device::Kind kind;
    device::Mac mac;
    const device::Interface* real;  // nullptr: the machine does not have it
    std::uint32_t flags;
};

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
    interface_entry::name.set(entry, shown.name);
    interface_entry::port.set(entry, shown.port);
    interface_entry::mac.set(entry, shown.mac.data());
}

void append_ports(const Profile& profile, const Ports& ports, Bytes& table)
{
    for (const ProfilePort& port : profile.ports) {
        const device::Interface* real = ports.find(port.interface);
        append({.name = port.interface.c_str(),
                .port = port.name.c_str(),
                .kind = port.kind,
                .mac = real ? real->mac : port.mac,
                .real = real,
                .flags = flags_of(profile, port.interface, port.role)},
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
                .flags = flags_of(profile, each.name, PortRole::kNone)},
               table);
    }
}

ServiceStatus read_interfaces(Call& call)
{
    const Ports ports(call.service);
    Bytes& table = call.answer.table;
    append_ports(call.service.profile, ports, table);
    append_others(call.service.profile, ports, table);
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
