// Network address translation: what it is told to do. The rules for the kernel are made from it in firewall.cpp.
#include "configd/areas/nat.h"

#include <algorithm>

#include "configd/areas/address.h"
#include "configd/areas/areas.h"
#include "configd/areas/firewall.h"
#include "configd/areas/interface_entries.h"
#include "configd/areas/ipv4.h"
#include "service/codes.h"
#include "service/fields/nat.h"

namespace {
constexpr std::size_t kMostInterfaces = 16, kMostHosts = 16, kMostServers = 32, kMostTriggers = 16;
constexpr int kLastPort = 65535;

constexpr Choice kProtocols[] = {{kNatTcp, "tcp"}, {kNatUdp, "udp"}, {kNatBoth, "both"}};
constexpr row::TextRules kInterfaceName{.min = 1, .takes = is_interface_name};
constexpr row::TextRules kEntryName{.min = 1};
constexpr row::NumberRules kPort{.min = 1, .max = kLastPort, .factory = 1};
constexpr row::NumberRules kPortOrNone{.min = 0, .max = kLastPort, .factory = 0};

constexpr std::uint8_t kName = 0;        // the identity that requests delete by
constexpr std::uint8_t kNatAddress = 1;  // outside, an address is one host's

// clang-format off
constexpr Column kInterfaceColumns[] = {
    {row::text("interface", nat_interface::name, kInterfaceName), nat_record::interface.at, kName},
};
constexpr Column kDefaultHostColumns[] = {
    carried(row::text   ("interface", dmz_entry::interface, kInterfaceName), kName),
    carried(row::address("host",      dmz_entry::dmzAddress, 0, is_host)),
};
constexpr Column kHostColumns[] = {
    carried(row::text   ("name",        dmz_entry::name,       kEntryName), kName),
    carried(row::text   ("interface",   dmz_entry::interface,  kInterfaceName), kNatAddress),
    carried(row::address("nat_address", dmz_entry::natAddress, 0, is_host), kNatAddress),
    carried(row::address("host",        dmz_entry::dmzAddress, 0, is_host)),
};
constexpr Column kServerColumns[] = {
    carried(row::text   ("name",         nat_server_entry::name,      kEntryName), kName),
    carried(row::text   ("interface",    nat_server_entry::interface, kInterfaceName)),
    carried(row::choice ("protocol",     nat_server_entry::protocol,  kProtocols, kNatBoth)),
    carried(row::number ("public_first", nat_server_entry::publicFirst, kPort)),
    carried(row::number ("public_last",  nat_server_entry::publicLast,  kPort)),
    carried(row::number ("local_first",  nat_server_entry::localFirst,  kPort)),
    carried(row::number ("local_last",   nat_server_entry::localLast,   kPort)),
    carried(row::address("server",       nat_server_entry::server, 0, is_host)),
};
constexpr Column kTriggerColumns[] = {
    carried(row::text  ("name",            nat_trigger_entry::name,     kEntryName), kName),
    carried(row::choice("protocol",        nat_trigger_entry::protocol, kProtocols, kNatBoth)),
    carried(row::number("port",            nat_trigger_entry::port,     kPort)),
    carried(row::choice("opened_protocol", nat_trigger_entry::openedProtocol, kProtocols, kNatBoth)),
    carried(row::number("opened_first_1",  nat_trigger_entry::kOpened[0].first, kPort)),
    carried(row::number("opened_last_1",   nat_trigger_entry::kOpened[0].last,  kPort)),
    carried(row::number("opened_first_2",  nat_trigger_entry::kOpened[1].first, kPortOrNone)),
    carried(row::number("opened_last_2",   nat_trigger_entry::kOpened[1].last,  kPortOrNone)),
    carried(row::number("opened_first_3",  nat_trigger_entry::kOpened[2].first, kPortOrNone)),
    carried(row::number("opened_last_3",   nat_trigger_entry::kOpened[2].last,  kPortOrNone)),
};
// clang-format on

ServiceStatus check_server(const unsigned char* entry)
{
    using namespace nat_server_entry;
    const int outside = publicLast.get(entry) - publicFirst.get(entry);
    const int inside = localLast.get(entry) - localFirst.get(entry);
    const bool isMoved = inside != 0 && publicFirst.get(entry) != localFirst.get(entry);
    if (outside < 0 || inside < 0 || (inside != 0 && inside != outside)) return kStatusValueRefused;
    return isMoved && inside >= static_cast<int>(kMostMoved) ? kStatusValueRefused : kStatusOk;
}

ServiceStatus check_trigger(const unsigned char* entry)
{
    bool ended = false;
    for (const nat_trigger_entry::Range& range : nat_trigger_entry::kOpened) {
        const std::uint16_t first = range.first.get(entry), last = range.last.get(entry);
        if (last < first || (first == 0 && last != 0) || (ended && first != 0)) return kStatusValueRefused;
        ended = first == 0;
    }
    return kStatusOk;
}

// clang-format off
constexpr Identity kByInterface[] = {{kStatusDuplicateName, kStatusUnknownInterface}};
constexpr Identity kByName[] = {{kStatusDuplicateName, kStatusUnknownName}};
constexpr Identity kByNameAndAddress[] = {{kStatusDuplicateName,    kStatusUnknownName},
                                          {kStatusDuplicateAddress, kStatusUnknownAddress}};
constexpr List kLists[] = {
    {"nat_interfaces",    kInterfaceColumns,   kByInterface,      nat_interface::At::room,  kMostInterfaces},
    {"nat_default_hosts", kDefaultHostColumns, kByName,           dmz_entry::kSize,         kMostInterfaces},
    {"nat_hosts",         kHostColumns,        kByNameAndAddress, dmz_entry::kSize,         kMostHosts},
    {"nat_servers",       kServerColumns,      kByName,           nat_server_entry::kSize,  kMostServers,  check_server},
    {"nat_triggers",      kTriggerColumns,     kByName,           nat_trigger_entry::kSize, kMostTriggers, check_trigger},
};
// clang-format on

bool is_wan(const Service& service, const std::string& name)
{
    const ProfilePort* port = port_of_interface(service.profile, name);
    return port && port->role == PortRole::kWan;
}

bool is_lan_host(const Service& service, std::uint32_t address)
{
    const Ports ports(service);
    const NetworkAddress lan = lan_address(service, ports);
    return lan.netmask != 0 && ((address ^ lan.address) & lan.netmask) == 0 && address != lan.address &&
           is_host_of_network(address, lan.netmask);
}

bool translates(const Service& service, const std::string& interface)
{
    return std::ranges::any_of(service.store.running().entries(kNatInterfaces), [&](const Entry& entry) {
        return text_of(nat_interface::name, entry.bytes.data()) == interface;
    });
}

ServiceStatus read_nat(Call& call)
{
    const std::string only = text_of(nat_record::interface, call.request.bytes);
    if (!only.empty() && !is_wan(call.service, only)) return kStatusUnknownInterface;

    const Profile& profile = call.service.profile;
    const Ports ports(call.service);
    const NetworkAddress lan = lan_address(call.service, ports), wan = wan_address(call.service, ports);
    const ProfilePort* lanPort = port_of_role(profile, PortRole::kLan);
    ComParam& answer = call.answer.record;
    nat_record::interface.set(answer, only.c_str());
    nat_record::lanInterface.set(answer, lanPort ? lanPort->interface.c_str() : "");
    nat_record::lanAddress.set(answer, lan.address);
    nat_record::lanNetmask.set(answer, lan.netmask);

    for (const ProfilePort& port : profile.ports) {
        if (port.role != PortRole::kWan || (!only.empty() && port.interface != only)) continue;
        const device::Interface* real = ports.find(port.interface);
        const bool isFirst = &port == port_of_role(profile, PortRole::kWan);
        Bytes entry(nat_entry::kSize, 0);
        nat_entry::interface.set(entry.data(), port.interface.c_str());
        nat_entry::enabled.set(entry.data(), translates(call.service, port.interface));
        nat_entry::address.set(entry.data(), isFirst ? wan.address : real ? real->address : 0);
        call.answer.table.insert(call.answer.table.end(), entry.begin(), entry.end());
    }
    return kStatusOk;
}

ServiceStatus switch_nat(Call& call)
{
    const std::string interface = text_of(nat_record::interface, call.request.bytes);
    const std::uint32_t enabled = nat_record::enabled.get(call.request);
    if (!is_wan(call.service, interface) || !is_interface_name(interface.c_str())) return kStatusUnknownInterface;
    if (enabled > 1) return kStatusValueRefused;
    if ((enabled != 0) == translates(call.service, interface)) return kStatusOk;
    return enabled ? add_to_list(call) : delete_from_list(call);
}

ServiceStatus read_dmz(Call& call)
{
    const Configuration& running = call.service.store.running();
    Bytes& table = call.answer.table;
    for (const Entry& entry : running.entries(kNatDefaultHosts)) {
        Bytes shown = entry.bytes;
        dmz_entry::name.set(shown.data(), dmz_entry::kDefault);
        table.insert(table.end(), shown.begin(), shown.end());
    }
    for (const Entry& entry : running.entries(kNatHosts))
        table.insert(table.end(), entry.bytes.begin(), entry.bytes.end());
    return kStatusOk;
}

bool names_default_host(const ComParam& request)
{
    return text_of(dmz_entry::name, carried_entry(request)) == dmz_entry::kDefault;
}

// The one that the interface had gives way to it.
ServiceStatus replace_default_host(Call& call)
{
    const std::string interface = text_of(dmz_entry::interface, carried_entry(call.request));
    Configuration next = call.service.store.running();
    std::erase_if(next.entries(kNatDefaultHosts),
                  [&](const Entry& entry) { return text_of(dmz_entry::interface, entry.bytes.data()) == interface; });
    Entry entry{Bytes(dmz_entry::kSize, 0), {}};
    dmz_entry::interface.set(entry.bytes.data(), interface.c_str());
    dmz_entry::dmzAddress.set(entry.bytes.data(), dmz_entry::dmzAddress.get(carried_entry(call.request)));
    if (const ServiceStatus refused = add_entry(kNatDefaultHosts, next.entries(kNatDefaultHosts), std::move(entry)))
        return refused;
    return call.service.store.change(std::move(next));
}

// Reads the same field of the request for either kind of entry.
template <class InterfaceField, class AddressField>
ServiceStatus check_ends(const Call& call, const InterfaceField& interface, const AddressField& host)
{
    const unsigned char* entry = carried_entry(call.request);
    const std::string name = text_of(interface, entry);
    if (!is_wan(call.service, name) || !is_interface_name(name.c_str())) return kStatusUnknownInterface;
    return is_lan_host(call.service, host.get(entry)) ? kStatusOk : kStatusAddressOutOfRange;
}

ServiceStatus add_dmz(Call& call)
{
    if (const ServiceStatus refused = check_ends(call, dmz_entry::interface, dmz_entry::dmzAddress)) return refused;
    return names_default_host(call.request) ? replace_default_host(call) : add_to_list(call);
}

ServiceStatus delete_dmz(Call& call)
{
    if (!names_default_host(call.request)) return delete_from_list(call);
    const std::string interface = text_of(dmz_entry::interface, carried_entry(call.request));
    if (!is_wan(call.service, interface)) return kStatusUnknownInterface;
    Configuration next = call.service.store.running();
    const std::size_t deleted = std::erase_if(next.entries(kNatDefaultHosts), [&](const Entry& entry) {
        return text_of(dmz_entry::interface, entry.bytes.data()) == interface;
    });
    return deleted == 0 ? kStatusUnknownName : call.service.store.change(std::move(next));
}

// A redirection is deleted by its name alone, so servers and triggers share their names.
static_assert(nat_trigger_entry::name.at.offset == nat_server_entry::name.at.offset);
bool has_name(const Call& call, const List& list)
{
    const std::string name = text_of(nat_server_entry::name, carried_entry(call.request));
    return std::ranges::any_of(call.service.store.running().entries(list), [&](const Entry& entry) {
        return text_of(nat_server_entry::name, entry.bytes.data()) == name;
    });
}

bool share_ports(const unsigned char* a, const unsigned char* b)
{
    using namespace nat_server_entry;
    return (protocol.get(a) & protocol.get(b)) != 0 && text_of(interface, a) == text_of(interface, b) &&
           publicFirst.get(a) <= publicLast.get(b) && publicFirst.get(b) <= publicLast.get(a);
}

ServiceStatus add_server(Call& call)
{
    using namespace nat_server_entry;
    if (const ServiceStatus refused = check_ends(call, interface, server)) return refused;
    if (has_name(call, kNatServers) || has_name(call, kNatTriggers)) return kStatusDuplicateName;
    for (const Entry& entry : call.service.store.running().entries(kNatServers))
        if (share_ports(entry.bytes.data(), carried_entry(call.request))) return kStatusPortsTaken;
    return add_to_list(call);
}

ServiceStatus add_trigger(Call& call)
{
    if (has_name(call, kNatServers)) return kStatusDuplicateName;
    return add_to_list(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadNat,           .run = read_nat},
    {.code = code::kEnableNat,         .run = in_force<switch_nat>,       .list = &kLists[0]},
    {.code = code::kReadDmz,           .run = read_dmz},
    {.code = code::kAddDmz,            .run = in_force<add_dmz>,          .list = &kLists[2]},
    {.code = code::kDeleteDmz,         .run = in_force<delete_dmz>,       .list = &kLists[2]},
    {.code = code::kReadNatRedirect,   .run = read_list,                  .list = &kLists[3]},
    {.code = code::kAddNatRedirect,    .run = in_force<add_server>,       .list = &kLists[3]},
    {.code = code::kDeleteNatRedirect, .run = in_force<delete_from_list>, .list = &kLists[3]},
    {.code = code::kReadNatTrigger,    .run = read_list,                  .list = &kLists[4]},
    {.code = code::kAddNatTrigger,     .run = in_force<add_trigger>,      .list = &kLists[4]},
    {.code = code::kDeleteNatTrigger,  .run = in_force<delete_from_list>, .list = &kLists[4]},
};
// clang-format on
}  // namespace

constexpr const List& kNatInterfaces = kLists[0];
constexpr const List& kNatDefaultHosts = kLists[1];
constexpr const List& kNatHosts = kLists[2];
constexpr const List& kNatServers = kLists[3];
constexpr const List& kNatTriggers = kLists[4];

const Area kNatArea{.sections = {}, .lists = kLists, .operations = kOperations};
