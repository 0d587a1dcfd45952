#include "bench/load/ownership.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "configd/operations.h"
#include "service/codes.h"
#include "service/fields/ddns.h"
#include "service/fields/dhcp.h"
#include "service/fields/ip_filter.h"
#include "service/fields/mac_filter.h"
#include "service/fields/management.h"
#include "service/fields/nat.h"
#include "service/fields/radius.h"
#include "service/fields/snmp.h"
#include "service/fields/system.h"
#include "service/fields/time.h"
#include "service/fields/wds.h"

namespace {
constexpr std::uint32_t kNetwork = 10U << 24;

std::string name_of(unsigned client, unsigned number)
{
    return "c" + std::to_string(client) + "-" + std::to_string(number);
}
std::uint32_t address_of(unsigned client, unsigned number) { return kNetwork | client << 16 | (number & 0xFFFF); }
std::uint16_t port_of(unsigned number) { return static_cast<std::uint16_t>(1024 + number % 60000); }

struct Mac {
    unsigned char bytes[6];
};
Mac mac_of(unsigned client, unsigned number)
{
    const auto low = [](unsigned value) { return static_cast<unsigned char>(value); };
    return {{2, 0, low(client), low(number >> 16), low(number >> 8), low(number)}};
}

template <class T> std::string text_at(const unsigned char* bytes, const T& field)
{
    return {reinterpret_cast<const char*>(bytes + field.at.offset), field.length(bytes)};
}

// A setting that one client owns. Its record is read and written back whole.
struct Single {
    std::uint16_t read, write;
    void (*set)(ComParam& record, unsigned client, unsigned number);
    std::string (*get)(const ComParam& record);
    std::string (*wanted)(unsigned client, unsigned number);
};

constexpr char kFirstServer[] = "primary";  // the RADIUS record's; looked at by no other code

template <const TextField& field> constexpr Single text(std::uint16_t read, std::uint16_t write)
{
    return {
        read, write,
        [](ComParam& record, unsigned client, unsigned number) { field.set(record, name_of(client, number).c_str()); },
        [](const ComParam& record) { return text_at(record.bytes, field); }, name_of};
}
template <const auto& field, auto value> constexpr Single number(std::uint16_t read, std::uint16_t write)
{
    return {read, write, [](ComParam& record, unsigned client, unsigned n) { field.set(record, value(client, n)); },
            [](const ComParam& record) { return std::to_string(field.get(record)); },
            [](unsigned client, unsigned n) { return std::to_string(value(client, n)); }};
}
constexpr auto kPort = [](unsigned, unsigned n) { return port_of(n); };
constexpr auto kCount = [](unsigned, unsigned n) { return n; };

// The client of an index owns the setting there.
constexpr Single kSingles[] = {
    text<system_record::location>(code::kReadSystem, code::kWriteSystem),
    number<management_record::httpPort, kPort>(code::kReadManagement, code::kWriteManagement),
    number<dhcp_record::leaseTime, kCount>(code::kReadDhcpServer, code::kWriteDhcpServer),
    text<time_record::serverName>(code::kReadTime, code::kWriteNtpClient),
    text<ddns_record::username>(code::kReadDdns, code::kWriteDdns),
    text<snmp_record::readCommunity>(code::kReadSnmp, code::kWriteSnmp),
    number<radius_record::address, address_of>(code::kReadRadius, code::kWriteRadius),
};

// A list that clients `first` to `last` own an entry of: it is there or not.
struct SharedList {
    unsigned first, last;
    std::uint16_t read, add, remove;
    std::size_t entrySize;
    void (*carry)(ComParam& request, unsigned client, unsigned number);
    std::string (*get)(const unsigned char* entry);
    std::string (*wanted)(unsigned client, unsigned number);
};

template <const auto& field> std::string name_in(const unsigned char* entry) { return text_at(entry, field); }

void carry_reserved(ComParam& request, unsigned client, unsigned number)
{
    dhcp_static_request::address.set(request, address_of(client, number));
    dhcp_static_request::mac.set(request, mac_of(client, number).bytes);
}
void carry_mac_filter(ComParam& request, unsigned client, unsigned number)
{
    mac_filter_record::name.set(request, name_of(client, number).c_str());
    mac_filter_record::mac.set(request, mac_of(client, number).bytes);
}
void carry_ip_filter(ComParam& request, unsigned client, unsigned number)
{
    unsigned char* entry = carried_entry(request);
    ip_filter_entry::name.set(entry, name_of(client, number).c_str());
    ip_filter_entry::interface.set(entry, "eth1");
    ip_filter_entry::direction.set(entry, ip_filter_entry::kInbound);
    ip_filter_entry::sourceAddress.set(entry, address_of(client, number));
    ip_filter_entry::sourceNetmask.set(entry, 0xFFFFFFFF);
}
void carry_trigger(ComParam& request, unsigned client, unsigned number)
{
    unsigned char* entry = carried_entry(request);
    nat_trigger_entry::name.set(entry, name_of(client, number).c_str());
    for (const auto& each : {nat_trigger_entry::protocol, nat_trigger_entry::openedProtocol}) each.set(entry, kNatTcp);
    for (const auto& each :
         {nat_trigger_entry::port, nat_trigger_entry::kOpened[0].first, nat_trigger_entry::kOpened[0].last})
        each.set(entry, port_of(number));
}
void carry_peer(ComParam& request, unsigned client, unsigned number)
{
    wds_record::name.set(request, name_of(client, number).c_str());
    wds_record::mac.set(request, mac_of(client, number).bytes);
}
void carry_trap_manager(ComParam& request, unsigned client, unsigned number)
{
    trap_manager_request::name.set(request, name_of(client, number).c_str());
    trap_manager_request::address.set(request, address_of(client, number));
}

std::string address_in(const unsigned char* entry) { return std::to_string(dhcp_entry::address.get(entry)); }
std::string address_text(unsigned client, unsigned number) { return std::to_string(address_of(client, number)); }

// clang-format off
constexpr SharedList kLists[] = {
    { 0, 63, code::kReadDhcpStatic,  code::kAddDhcpStatic,  code::kDeleteDhcpStatic,  dhcp_entry::kSize,         carry_reserved,     address_in,                        address_text},
    { 0, 63, code::kReadIpFilter,    code::kAddIpFilter,    code::kDeleteIpFilter,    ip_filter_entry::kSize,    carry_ip_filter,    name_in<ip_filter_entry::name>,    name_of},
    { 0, 31, code::kReadMacFilter,   code::kAddMacFilter,   code::kDeleteMacFilter,   named_mac_entry::kSize,    carry_mac_filter,   name_in<named_mac_entry::name>,    name_of},
    {32, 47, code::kReadNatTrigger,  code::kAddNatTrigger,  code::kDeleteNatTrigger,  nat_trigger_entry::kSize,  carry_trigger,      name_in<nat_trigger_entry::name>,  name_of},
    {48, 55, code::kReadWdsPeers,    code::kAddWdsPeer,     code::kDeleteWdsPeer,     named_mac_entry::kSize,    carry_peer,         name_in<named_mac_entry::name>,    name_of},
    {56, 63, code::kReadSnmp,        code::kAddTrapManager, code::kDeleteTrapManager, trap_manager_entry::kSize, carry_trap_manager, name_in<trap_manager_entry::name>, name_of},
};
// clang-format on

// What a client owns, one after the other, is what its changes are about in turn.
struct Owned {
    const SharedList* list;  // one of the two
    const Single* single;
};
std::vector<Owned> owned_by(unsigned client)
{
    std::vector<Owned> all;
    for (const SharedList& list : kLists)
        if (client >= list.first && client <= list.last) all.push_back({&list, nullptr});
    if (client < std::size(kSingles)) all.push_back({nullptr, &kSingles[client]});
    return all;
}

// An entry is added at one turn and deleted at the next.
bool adds(unsigned number, std::size_t owned) { return (number - 1) / owned % 2 == 0; }

// The last change, up to `number`, of what stands at `place` of `owned`; 0: it was not changed yet.
unsigned last_change(unsigned number, std::size_t place, std::size_t owned)
{
    while (number > 0 && (number - 1) % owned != place) number--;
    return number;
}

std::optional<Answer> change_list(const Ask& ask, const SharedList& list, unsigned client, unsigned number,
                                  unsigned added)
{
    ComParam request = plain_request(added == number ? list.add : list.remove);
    list.carry(request, client, added);
    return ask(request);
}

std::optional<Answer> change_single(const Ask& ask, const Single& single, unsigned client, unsigned number)
{
    std::optional<Answer> before = ask(plain_request(single.read));
    if (!before) return {};
    ComParam request = before->record;
    record::code.set(request, single.write);
    record::attachedLength.set(request, 0);
    single.set(request, client, number);
    return ask(request);
}

// A name or an address tells whose it is.
bool belongs_to(const SharedList& list, const std::string& value, unsigned client)
{
    if (list.wanted == name_of) return value.starts_with(name_of(client, 0).substr(0, value.find('-') + 1));
    return (std::stoul(value) >> 16) == (address_of(client, 0) >> 16);
}
}  // namespace

ComParam plain_request(std::uint16_t code)
{
    ComParam request{};
    record::kind.set(request, record::kRequest);
    record::code.set(request, code);
    if (code == code::kReadRadius) radius_record::name.set(request, kFirstServer);
    return request;
}

std::optional<Answer> change(const Ask& ask, unsigned client, unsigned number)
{
    const std::vector<Owned> all = owned_by(client);
    const Owned& its = all[(number - 1) % all.size()];
    if (its.single) return change_single(ask, *its.single, client, number);
    const unsigned added = adds(number, all.size()) ? number : number - static_cast<unsigned>(all.size());
    return change_list(ask, *its.list, client, number, added);
}

bool Observed::read(const Ask& ask)
{
    for (unsigned client = 0; client < kMostOwners; client++) values_[client].assign(owned_by(client).size(), "");
    for (const SharedList& list : kLists) {
        const std::optional<Answer> answer = ask(plain_request(list.read));
        if (!answer) return false;
        for (std::size_t at = 0; at + list.entrySize <= answer->table.size(); at += list.entrySize) {
            const std::string value = list.get(answer->table.data() + at);
            for (unsigned client = list.first; client <= list.last; client++) {
                if (!belongs_to(list, value, client)) continue;
                const std::vector<Owned> all = owned_by(client);
                const auto place = std::ranges::find(all, &list, &Owned::list) - all.begin();
                // A second entry is one too many, and matches nothing.
                values_[client][static_cast<std::size_t>(place)] += value;
            }
        }
    }
    for (unsigned client = 0; client < std::size(kSingles); client++) {
        const std::optional<Answer> answer = ask(plain_request(kSingles[client].read));
        if (!answer) return false;
        values_[client].back() = kSingles[client].get(answer->record);
    }
    return true;
}

bool Observed::read_stored(const std::string& text)
{
    static const Model model = model_of(areas());
    Storage files = {};
    files.read = [&text](const std::string& path, std::size_t, std::string& content) {
        if (!path.ends_with("/config.json")) return ENOENT;
        content = text;
        return 0;
    };
    files.makeFolder = [](const std::string&, unsigned) { return 0; };
    files.syncFolder = [](const std::string&) { return 0; };
    files.exists = [](const std::string&) { return false; };
    files.rename = [](const std::string&, const std::string&) { return EROFS; };
    files.create = [](const std::string&, int&) { return EROFS; };

    Service service{kLinuxDevice, built_in_profile(), Store(model, files, {"run", "state"})};
    service.store.start();
    return read([&service](const ComParam& request) {
        Answer answer;
        answer_request(service, request, answer);
        return std::optional(std::move(answer));
    });
}

bool Observed::matches(unsigned client, unsigned number) const
{
    const std::vector<Owned> all = owned_by(client);
    for (std::size_t place = 0; place < all.size(); place++) {
        const unsigned last = last_change(number, place, all.size());
        const std::string& value = values_[client][place];
        if (all[place].single && last != 0 && value != all[place].single->wanted(client, last)) return false;
        if (!all[place].list) continue;
        const bool isThere = last != 0 && adds(last, all.size());
        if (value != (isThere ? all[place].list->wanted(client, last) : "")) return false;
    }
    return true;
}

std::optional<unsigned> Observed::number_of(unsigned client, unsigned first, unsigned last) const
{
    for (unsigned number = first; number <= last; number++)
        if (matches(client, number)) return number;
    return {};
}

std::string Observed::describe(unsigned client) const
{
    std::string text;
    for (const std::string& value : values_[client]) text += " \"" + value + "\"";
    return text;
}

std::uint16_t reading_code(std::size_t choice)
{
    constexpr std::uint16_t kCodes[] = {
        code::kReadSystem,     code::kReadManagement, code::kReadDhcpStatic, code::kReadMacFilter, code::kReadSnmp,
        code::kReadWdsPeers,   code::kReadDdns,       code::kReadIpFilter,   code::kReadTime,      code::kReadPort,
        code::kReadInterfaces, code::kReadNat,        code::kReadRoutes,     code::kReadRip,       code::kReadUpnp,
        code::kReadDhcpServer, code::kReadLeases,     code::kReadLogTable,   code::kReadSystemLog, code::kReadRadius,
    };
    return kCodes[choice % std::size(kCodes)];
}
