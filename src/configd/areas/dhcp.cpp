// The DHCP server of the LAN side: its settings, the addresses that are reserved for one MAC address each, and what it
// has given out.
#include "configd/areas/dhcp.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "configd/areas/areas.h"
#include "configd/areas/ipv4.h"
#include "service/codes.h"
#include "service/fields/dhcp.h"

namespace {
constexpr std::uint32_t kFactoryRouter = 0xC0A80101;                             // 192.168.1.1, the LAN's own address
constexpr std::uint32_t kFactoryLower = 0xC0A80164, kFactoryUpper = 0xC0A801C7;  // .100 to .199
constexpr std::uint32_t kClassC = 0xFFFFFF00;
constexpr std::int64_t kLongestLease = 525600, kFactoryLease = 1440;  // minutes: a year, a day
constexpr std::size_t kMostReserved = 64;
constexpr std::uint8_t kByAddress = 0, kByMac = 1;

ServiceStatus check(const unsigned char* image)
{
    using namespace dhcp_record;
    const std::uint32_t lower = lowerAddress.get(image), upper = upperAddress.get(image), mask = netmask.get(image);
    for (const auto& other : {gateway, primaryDns, secondaryDns})
        if (!is_host_or_none(other.get(image))) return kStatusAddressOutOfRange;
    const bool oneNetwork = (lower & mask) == (upper & mask);
    const bool hosts = is_host_of_network(lower, mask) && is_host_of_network(upper, mask);
    return oneNetwork && hosts && lower <= upper ? kStatusOk : kStatusPoolRefused;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::flag   ("enabled",               dhcp_record::state,        true),
    row::address("lower_address",         dhcp_record::lowerAddress, kFactoryLower),
    row::address("upper_address",         dhcp_record::upperAddress, kFactoryUpper),
    row::address("netmask",               dhcp_record::netmask,      kClassC, is_netmask),
    row::number ("lease_minutes",         dhcp_record::leaseTime,    {.min = 1, .max = kLongestLease, .factory = kFactoryLease}),
    row::address("gateway",               dhcp_record::gateway,      kFactoryRouter),
    row::address("primary_name_server",   dhcp_record::primaryDns,   0),
    row::address("secondary_name_server", dhcp_record::secondaryDns, 0),
});
constexpr Section kSections[] = {section("dhcp_server", "", kRows, check)};

constexpr Column kColumns[] = {
    {row::address("address", dhcp_entry::address, 0, is_host), dhcp_static_request::address.at, kByAddress},
    {row::mac    ("mac",     dhcp_entry::mac),                 dhcp_static_request::mac.at,     kByMac},
};
constexpr Identity kIdentities[] = {
    {kStatusDuplicateAddress, kStatusUnknownAddress},
    {kStatusDuplicateAddress, kStatusUnknownAddress},
};
constexpr List kLists[] = {{"dhcp_reserved", kColumns, kIdentities, dhcp_entry::kSize, kMostReserved}};
// clang-format on

bool is_reserved(const device::Lease& lease, const std::vector<Entry>& reserved)
{
    return std::ranges::any_of(reserved, [&](const Entry& entry) {
        const unsigned char* bytes = entry.bytes.data();
        return dhcp_entry::address.get(bytes) == lease.address &&
               std::memcmp(dhcp_entry::mac.get(bytes), lease.mac.data(), lease.mac.size()) == 0;
    });
}

void give_lease(const device::Lease& lease, bool reserved, unsigned char* entry)
{
    dhcp_entry::address.set(entry, lease.address);
    dhcp_entry::mac.set(entry, lease.mac.data());
    dhcp_entry::hostName.set(entry, lease.hostName);
    dhcp_entry::flags.set(entry, reserved ? dhcp_entry::kStatic : 0);
    dhcp_entry::expiry.set(entry, lease.expires);
}

// Without a lease file nothing was given out; neither was while the file is not there yet.
ServiceStatus read_lease_file(const Service& service, std::vector<device::Lease>& leases)
{
    const std::string& path = service.profile.leases;
    const int error = path.empty() ? 0 : service.device.read_leases(path.c_str(), leases);
    return error == ENOENT ? kStatusOk : device::status_of(error);
}

ServiceStatus read_leases(Call& call)
{
    std::vector<device::Lease> leases;
    if (const ServiceStatus failed = read_lease_file(call.service, leases)) return failed;

    const std::vector<Entry>& reserved = call.service.store.running().entries(kLists[0]);
    call.answer.table.resize(leases.size() * dhcp_entry::kSize);
    unsigned char* entry = call.answer.table.data();
    for (const device::Lease& lease : leases) {
        give_lease(lease, is_reserved(lease, reserved), entry);
        entry += dhcp_entry::kSize;
    }
    dhcp_table_record::count.set(call.answer.record, static_cast<std::uint16_t>(leases.size()));
    return kStatusOk;
}

std::string dotted(std::uint32_t address)
{
    const in_addr wire{htonl(address)};
    char text[INET_ADDRSTRLEN] = "";
    inet_ntop(AF_INET, &wire, text, sizeof text);
    return text;
}

void append_option(const char* option, std::uint32_t first, std::uint32_t second, std::string& rules)
{
    std::string values;
    for (const std::uint32_t each : {first, second})
        if (each != 0) values += "," + dotted(each);
    if (!values.empty()) rules += std::string("dhcp-option=option:") + option + values + "\n";
}

void append_reserved(const unsigned char* entry, std::string& rules)
{
    const unsigned char* mac = dhcp_entry::mac.get(entry);
    char text[sizeof "00:00:00:00:00:00"];
    std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
    rules += std::string("dhcp-host=") + text + "," + dotted(dhcp_entry::address.get(entry)) + "\n";
}

// Carries out a change of what the rules are made from. When they cannot be written, nothing has changed.
template <ServiceStatus (*change)(Call&)> ServiceStatus handed_on(Call& call)
{
    const Configuration before = call.service.store.running();
    if (const ServiceStatus refused = change(call)) return refused;
    const int error = apply_dhcp(call.service);
    if (error != 0) call.service.store.change(before);
    return storage_status(error);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadDhcpServer,   .run = read_section,                .sections = kSections},
    {.code = code::kWriteDhcpServer,  .run = handed_on<write_section>,    .sections = kSections},
    {.code = code::kReadDhcpStatic,   .run = read_list,                   .list = kLists, .count = dhcp_table_record::count.at},
    {.code = code::kAddDhcpStatic,    .run = handed_on<add_to_list>,      .list = kLists},
    {.code = code::kDeleteDhcpStatic, .run = handed_on<delete_from_list>, .list = kLists},
    {.code = code::kReadLeases,       .run = read_leases},
};
// clang-format on
}  // namespace

const Area kDhcpArea{.sections = kSections, .lists = kLists, .operations = kOperations};

std::string dhcp_rules(const Service& service)
{
    using namespace dhcp_record;
    const Bytes& values = service.store.running().values(kSections[0]);
    const unsigned char* image = values.data();
    std::string rules = "# Made by configd of its settings.\n";
    if (state.get(image) != kEnabled) return rules;

    rules += "dhcp-range=" + dotted(lowerAddress.get(image)) + "," + dotted(upperAddress.get(image)) + "," +
             dotted(netmask.get(image)) + "," + std::to_string(leaseTime.get(image)) + "m\n";
    append_option("router", gateway.get(image), 0, rules);
    append_option("dns-server", primaryDns.get(image), secondaryDns.get(image), rules);
    for (const Entry& entry : service.store.running().entries(kLists[0])) append_reserved(entry.bytes.data(), rules);
    return rules;
}

int apply_dhcp(const Service& service) { return service.dhcpRules.write(dhcp_rules(service)); }
