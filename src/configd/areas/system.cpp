// The system record: the texts that identify the device, the prompt, and beside them what the device has.
#include "service/fields/system.h"

#include <cstring>

#include "configd/areas/address.h"
#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
using namespace system_record;

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::meant(row::text("prompt", prompt, {.factory = "Command", .min = 1, .emptyKeeps = true})),
    row::text("name",     name,     {.factory = "router",            .emptyKeeps = true}),
    row::text("contact",  contact,  {.factory = "",                  .emptyKeeps = true}),
    row::text("location", location, {.factory = "",                  .emptyKeeps = true}),
});
constexpr auto kPromptOnly = std::span(kRows).first<1>();
constexpr Section kSections[] = {section("system", "", kRows)};

// What a record shows of the device itself. A record with all of it right is a system record; the console's prompt command
// sends whatever its last answer left in the other fields, and those are no texts of the system then.
constexpr Extent kOwnMarks[] = {
    version.at, lanMac.at, wirelessMac.at, radioMac[0].at, radioMac[1].at, wanMac.at,
};
// clang-format on

bool is_system_record(const ComParam& record, const ComParam& own)
{
    for (const Extent mark : kOwnMarks) {
        if (std::memcmp(record.bytes + mark.offset, own.bytes + mark.offset, mark.width) != 0) return false;
    }
    return true;
}

void give_addresses(const Service& service, const Ports& ports, ComParam& answer)
{
    const NetworkAddress lan = lan_address(service, ports), wan = wan_address(service, ports);
    lanAddress.set(answer, lan.address);
    lanNetmask.set(answer, lan.netmask);
    wanAddress.set(answer, wan.address);
    wanNetmask.set(answer, wan.netmask);
    const auto servers = name_servers(service);
    primaryDns.set(answer, servers[0]);
    secondaryDns.set(answer, servers[1]);
}

void give_ports(const Profile& profile, const Ports& ports, ComParam& answer)
{
    lanMac.set(answer, ports.mac(PortRole::kLan).data());
    wanMac.set(answer, ports.mac(PortRole::kWan).data());
    wirelessMac.set(answer, ports.mac(PortRole::kWireless).data());
    for (std::size_t i = 0; i < std::size(radioMac) && i < profile.radios.size(); i++)
        radioMac[i].set(answer, ports.mac(profile.radios[i]).data());
    const int up =
        (ports.is_linked(PortRole::kLan) ? kLanUp : 0) | (ports.is_linked(PortRole::kWireless) ? kWirelessUp : 0);
    links.set(answer, static_cast<std::uint16_t>(up));
}

ServiceStatus read_system(Call& call)
{
    const Service& service = call.service;
    ComParam& answer = call.answer.record;
    const Ports ports(service);
    description.set(answer, service.profile.description.c_str());
    version.set(answer, kSoftwareVersion);
    upTime.set(answer, service.device.read_up_time());
    give_addresses(service, ports, answer);
    give_ports(service.profile, ports, answer);
    return read_section(call);
}

ServiceStatus write_system(Call& call)
{
    read_system(call);
    const bool whole = is_system_record(call.request, call.answer.record);
    const std::span<const Setting> rows = whole ? std::span<const Setting>(kRows) : kPromptOnly;
    if (const ServiceStatus refused = write_rows(call, kSections[0], rows)) return refused;
    return read_section(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadSystem,  .run = read_system,  .sections = kSections},
    {.code = code::kWriteSystem, .run = write_system, .sections = kSections},
};
// clang-format on
}  // namespace

const Area kSystemArea{.sections = kSections, .lists = {}, .operations = kOperations};
