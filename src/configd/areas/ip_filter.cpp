// IP filters: what packets they match, and what interfaces do with the others. The rules for the kernel are made from
// them in firewall.cpp.
#include "configd/areas/ip_filter.h"

#include <algorithm>

#include "configd/areas/areas.h"
#include "configd/areas/firewall.h"
#include "configd/areas/interface_entries.h"
#include "configd/areas/ipv4.h"
#include "service/codes.h"
#include "service/fields/ip_filter.h"

namespace {
constexpr std::size_t kMostFilters = 64, kMostInterfaces = 32;
constexpr std::uint8_t kName = 0;

constexpr Choice kDirections[] = {{ip_filter_entry::kInbound, "inbound"}, {ip_filter_entry::kOutbound, "outbound"}};
constexpr Choice kProtocols[] = {{ip_filter_entry::kAny, "any"},
                                 {ip_filter_entry::kTcp, "tcp"},
                                 {ip_filter_entry::kUdp, "udp"},
                                 {ip_filter_entry::kIcmp, "icmp"},
                                 {ip_filter_entry::kIgmp, "igmp"}};
constexpr Choice kActions[] = {{ip_filter_record::kGrant, "grant"}, {ip_filter_record::kDeny, "deny"}};
constexpr row::TextRules kInterfaceName{.min = 1, .takes = is_interface_name};
constexpr row::NumberRules kPort{.min = 0, .max = 65535, .factory = 0};

// clang-format off
constexpr Column kFilterColumns[] = {
    carried(row::text   ("name",                ip_filter_entry::name, {.min = 1}), kName),
    carried(row::text   ("interface",           ip_filter_entry::interface, kInterfaceName)),
    carried(row::choice ("direction",           ip_filter_entry::direction, kDirections, ip_filter_entry::kInbound)),
    carried(row::choice ("protocol",            ip_filter_entry::protocol, kProtocols, ip_filter_entry::kAny)),
    carried(row::address("source",              ip_filter_entry::sourceAddress, 0)),
    carried(row::address("source_netmask",      ip_filter_entry::sourceNetmask, 0, is_netmask)),
    carried(row::address("destination",         ip_filter_entry::destinationAddress, 0)),
    carried(row::address("destination_netmask", ip_filter_entry::destinationNetmask, 0, is_netmask)),
    carried(row::number ("source_first",        ip_filter_entry::sourceFirst, kPort)),
    carried(row::number ("source_last",         ip_filter_entry::sourceLast, kPort)),
    carried(row::number ("destination_first",   ip_filter_entry::destinationFirst, kPort)),
    carried(row::number ("destination_last",    ip_filter_entry::destinationLast, kPort)),
};
constexpr Column kDefaultColumns[] = {
    {row::text  ("interface", ip_filter_default::interface, kInterfaceName), ip_filter_record::interface.at, kName},
    {row::choice("action",    ip_filter_default::action, kActions, ip_filter_record::kGrant), ip_filter_record::action.at},
};
// clang-format on

bool are_ports(std::uint16_t first, std::uint16_t last) { return first <= last && (first != 0 || last == 0); }

ServiceStatus check_filter(const unsigned char* entry)
{
    using namespace ip_filter_entry;
    const bool arePorts = are_ports(sourceFirst.get(entry), sourceLast.get(entry)) &&
                          are_ports(destinationFirst.get(entry), destinationLast.get(entry));
    const bool hasPorts = sourceLast.get(entry) != 0 || destinationLast.get(entry) != 0;
    if (!arePorts || (hasPorts && !has_ports(protocol.get(entry)))) return kStatusValueRefused;
    const std::uint32_t outsideSource = sourceAddress.get(entry) & ~sourceNetmask.get(entry);
    const std::uint32_t outsideDestination = destinationAddress.get(entry) & ~destinationNetmask.get(entry);
    return (outsideSource | outsideDestination) == 0 ? kStatusOk : kStatusValueRefused;
}

constexpr Identity kByName[] = {{kStatusDuplicateName, kStatusUnknownName}};
constexpr List kLists[] = {
    {"ip_filters", kFilterColumns, kByName, ip_filter_entry::kSize, kMostFilters, check_filter},
    {"ip_filter_defaults", kDefaultColumns, kByName, ip_filter_default::At::room, kMostInterfaces},
};

std::uint32_t default_action(const Service& service, const std::string& interface)
{
    for (const Entry& entry : service.store.running().entries(kIpFilterDefaults))
        if (text_of(ip_filter_default::interface, entry.bytes.data()) == interface)
            return ip_filter_default::action.get(entry.bytes.data());
    return ip_filter_record::kDisable;
}

ServiceStatus read_filters(Call& call)
{
    const std::string only = text_of(ip_filter_record::interface, call.request.bytes);
    if (only.empty()) return read_list(call);
    if (!is_visible_interface(call.service, only)) return kStatusUnknownInterface;

    ip_filter_record::interface.set(call.answer.record, only.c_str());
    ip_filter_record::action.set(call.answer.record, default_action(call.service, only));
    for (const Entry& entry : call.service.store.running().entries(kIpFilters))
        if (text_of(ip_filter_entry::interface, entry.bytes.data()) == only)
            call.answer.table.insert(call.answer.table.end(), entry.bytes.begin(), entry.bytes.end());
    return kStatusOk;
}

ServiceStatus add_filter(Call& call)
{
    const std::string interface = text_of(ip_filter_entry::interface, carried_entry(call.request));
    if (!is_visible_interface(call.service, interface)) return kStatusUnknownInterface;
    return add_to_list(call);
}

ServiceStatus write_default(Call& call)
{
    const std::string interface = text_of(ip_filter_record::interface, call.request.bytes);
    const std::uint32_t action = ip_filter_record::action.get(call.request);
    if (!is_visible_interface(call.service, interface)) return kStatusUnknownInterface;
    if (action > ip_filter_record::kDeny || !is_interface_name(interface.c_str())) return kStatusValueRefused;

    Configuration next = call.service.store.running();
    std::vector<Entry>& entries = next.entries(kIpFilterDefaults);
    std::erase_if(entries, [&](const Entry& entry) {
        return text_of(ip_filter_default::interface, entry.bytes.data()) == interface;
    });
    if (action != ip_filter_record::kDisable) {
        Entry entry{Bytes(ip_filter_default::At::room, 0), {}};
        ip_filter_default::interface.set(entry.bytes.data(), interface.c_str());
        ip_filter_default::action.set(entry.bytes.data(), action);
        if (const ServiceStatus refused = add_entry(kIpFilterDefaults, entries, std::move(entry))) return refused;
    }
    return call.service.store.change(std::move(next));
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadIpFilter,   .run = read_filters,               .list = &kLists[0]},
    {.code = code::kAddIpFilter,    .run = in_force<add_filter>,       .list = &kLists[0]},
    {.code = code::kDeleteIpFilter, .run = in_force<delete_from_list>, .list = &kLists[0]},
    {.code = code::kWriteIpFilter,  .run = in_force<write_default>},
};
// clang-format on
}  // namespace

constexpr const List& kIpFilters = kLists[0];
constexpr const List& kIpFilterDefaults = kLists[1];

const Area kIpFilterArea{.sections = {}, .lists = kLists, .operations = kOperations};
