#include "configd/areas/firewall.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "configd/areas/interface_entries.h"
#include "configd/areas/ip_filter.h"
#include "configd/areas/nat.h"
#include "service/fields/ip_filter.h"
#include "service/fields/nat.h"

namespace {
using Entries = std::vector<Entry>;

constexpr const char* kTriggerTime = "10m";  // opened ports close so long after the last triggering packet

class Rules {
public:
    void line(const char* format, ...) __attribute__((format(printf, 2, 3)))
    {
        char* made = nullptr;
        std::va_list arguments;
        va_start(arguments, format);
        const int length = vasprintf(&made, format, arguments);
        va_end(arguments);
        if (length < 0) return;
        text_.append(made, static_cast<std::size_t>(length)).append("\n");
        std::free(made);
    }
    std::string take() { return std::move(text_); }

private:
    std::string text_;
};

std::string address_text(std::uint32_t address)
{
    char text[sizeof "255.255.255.255"];
    std::snprintf(text, sizeof text, "%u.%u.%u.%u", address >> 24, address >> 16 & 255, address >> 8 & 255,
                  address & 255);
    return text;
}

std::string ports_text(unsigned first, unsigned last)
{
    return first == last ? std::to_string(first) : std::to_string(first) + "-" + std::to_string(last);
}

// What a rule says in front of the ports of a protocol.
struct Transport {
    const char* before;  // a match of its own, where two protocols share the rule
    const char* header;  // whose ports they are
};
Transport transport(std::uint8_t protocol)
{
    switch (protocol) {
    case kNatTcp: return {"", "tcp"};
    case kNatUdp: return {"", "udp"};
    default: return {"meta l4proto { tcp, udp } ", "th"};
    }
}

// What a server's traffic is sent to. The kernel keeps the ports of a range unless each is told its own.
std::string server_target(const unsigned char* entry, const char* header)
{
    using namespace nat_server_entry;
    const std::string host = address_text(server.get(entry));
    const unsigned outside = publicFirst.get(entry), inside = localFirst.get(entry);
    if (localFirst.get(entry) == localLast.get(entry)) return "dnat to " + host + ":" + std::to_string(inside);
    if (outside == inside) return "dnat to " + host;

    std::string map;
    for (unsigned port = outside; port <= publicLast.get(entry); port++)
        map += (map.empty() ? "" : ", ") + std::to_string(port) + " : " + std::to_string(port - outside + inside);
    return "dnat ip to " + host + " : " + header + " dport map { " + map + " }";
}

void write_server(const unsigned char* entry, Rules& rules)
{
    using namespace nat_server_entry;
    const Transport by = transport(protocol.get(entry));
    rules.line("        # %s", text_of(name, entry).c_str());
    rules.line("        iifname \"%s\" fib daddr type local %s%s dport %s %s", text_of(interface, entry).c_str(),
               by.before, by.header, ports_text(publicFirst.get(entry), publicLast.get(entry)).c_str(),
               server_target(entry, by.header).c_str());
}

void write_opened_ports(const std::string& interface, const unsigned char* entry, std::size_t number, Rules& rules)
{
    const Transport by = transport(nat_trigger_entry::openedProtocol.get(entry));
    for (const nat_trigger_entry::Range& range : nat_trigger_entry::kOpened) {
        const std::uint16_t first = range.first.get(entry);
        if (first == 0) break;
        rules.line("        iifname \"%s\" fib daddr type local %s%s dport %s dnat to meta protocol map @trigger_%zu",
                   interface.c_str(), by.before, by.header, ports_text(first, range.last.get(entry)).c_str(), number);
    }
}

struct Lists {
    const Entries &interfaces, &defaultHosts, &hosts, &servers, &triggers;
};

bool is_of(const std::string& interface, const auto& field, const Entry& entry)
{
    return text_of(field, entry.bytes.data()) == interface;
}

// The first rule that matches decides, so what names its ports stands before what takes the rest. Only an interface
// that translates redirects.
void write_redirections(const std::string& interface, const Lists& nat, Rules& rules)
{
    for (const Entry& each : nat.servers)
        if (is_of(interface, nat_server_entry::interface, each)) write_server(each.bytes.data(), rules);
    for (std::size_t i = 0; i < nat.triggers.size(); i++)
        write_opened_ports(interface, nat.triggers[i].bytes.data(), i + 1, rules);
    for (const Entry& each : nat.hosts) {
        if (!is_of(interface, dmz_entry::interface, each)) continue;
        rules.line("        # %s", text_of(dmz_entry::name, each.bytes.data()).c_str());
        rules.line("        iifname \"%s\" ip daddr %s dnat to %s", interface.c_str(),
                   address_text(dmz_entry::natAddress.get(each.bytes.data())).c_str(),
                   address_text(dmz_entry::dmzAddress.get(each.bytes.data())).c_str());
    }
    for (const Entry& each : nat.defaultHosts)
        if (is_of(interface, dmz_entry::interface, each))
            rules.line("        iifname \"%s\" fib daddr type local dnat to %s", interface.c_str(),
                       address_text(dmz_entry::dmzAddress.get(each.bytes.data())).c_str());
}

void write_translation(const std::string& interface, const Lists& nat, Rules& rules)
{
    for (const Entry& each : nat.hosts)
        if (is_of(interface, dmz_entry::interface, each))
            rules.line("        oifname \"%s\" ip saddr %s snat to %s", interface.c_str(),
                       address_text(dmz_entry::dmzAddress.get(each.bytes.data())).c_str(),
                       address_text(dmz_entry::natAddress.get(each.bytes.data())).c_str());
    rules.line("        oifname \"%s\" masquerade", interface.c_str());
}

// A packet to the triggering port leaves its sender's address behind for the opened ports. The map has one place: what
// its key is does not matter as long as every packet has the same.
void write_triggers(const std::string& interface, const Lists& nat, Rules& rules)
{
    for (std::size_t i = 0; i < nat.triggers.size(); i++) {
        const unsigned char* entry = nat.triggers[i].bytes.data();
        const Transport by = transport(nat_trigger_entry::protocol.get(entry));
        rules.line("        # %s", text_of(nat_trigger_entry::name, entry).c_str());
        rules.line("        oifname \"%s\" %s%s dport %u update @trigger_%zu { meta protocol timeout %s : ip saddr }",
                   interface.c_str(), by.before, by.header, unsigned{nat_trigger_entry::port.get(entry)}, i + 1,
                   kTriggerTime);
    }
}

template <class Write> void chain(const char* head, const Lists& nat, Rules& rules, Write write)
{
    rules.line("    chain %s; policy accept;", head);
    for (const Entry& each : nat.interfaces) write(text_of(nat_interface::name, each.bytes.data()), nat, rules);
    rules.line("    }");
}

std::string address_match(const char* side, std::uint32_t address, std::uint32_t netmask)
{
    if (netmask == 0) return "";
    const int length = __builtin_popcount(netmask);
    return std::string(" ip ") + side + " " + address_text(address) + "/" + std::to_string(length);
}

std::string ports_match(const char* header, const char* side, unsigned first, unsigned last)
{
    if (last == 0) return "";
    return std::string(" ") + header + " " + side + " " + ports_text(first, last);
}

std::string filter_match(const unsigned char* entry)
{
    using namespace ip_filter_entry;
    const std::uint8_t number = protocol.get(entry);
    std::string match = address_match("saddr", sourceAddress.get(entry), sourceNetmask.get(entry)) +
                        address_match("daddr", destinationAddress.get(entry), destinationNetmask.get(entry));
    if (number != kAny) match += " ip protocol " + std::to_string(number);
    const char* header = number == kTcp ? "tcp" : "udp";
    return match + ports_match(header, "sport", sourceFirst.get(entry), sourceLast.get(entry)) +
           ports_match(header, "dport", destinationFirst.get(entry), destinationLast.get(entry));
}

struct FilterChain {
    const char* head;
    ip_filter_entry::Direction direction;
    const char* interfaceMatch;
};

// Filters see a local host under its own address: behind the redirections on the way in, before the translation on the
// way out. What belongs to a connection that they let pass, passes.
constexpr FilterChain kFilterChains[] = {
    {"filter_in { type filter hook prerouting priority filter", ip_filter_entry::kInbound, "iifname"},
    {"filter_out { type filter hook postrouting priority mangle", ip_filter_entry::kOutbound, "oifname"},
};

void write_filters(const FilterChain& chain, const Entry& byDefault, const Entries& filters, Rules& rules)
{
    const std::string interface = text_of(ip_filter_default::interface, byDefault.bytes.data());
    const bool denies = ip_filter_default::action.get(byDefault.bytes.data()) == ip_filter_record::kDeny;
    for (const Entry& each : filters) {
        const unsigned char* entry = each.bytes.data();
        if (!is_of(interface, ip_filter_entry::interface, each)) continue;
        if (ip_filter_entry::direction.get(entry) != chain.direction) continue;
        rules.line("        # %s", text_of(ip_filter_entry::name, entry).c_str());
        rules.line("        %s \"%s\"%s %s", chain.interfaceMatch, interface.c_str(), filter_match(entry).c_str(),
                   denies ? "accept" : "drop");
    }
    if (denies) rules.line("        %s \"%s\" drop", chain.interfaceMatch, interface.c_str());
}
}  // namespace

std::string firewall_rules(const Service& service)
{
    const Configuration& running = service.store.running();
    const Lists nat{running.entries(kNatInterfaces), running.entries(kNatDefaultHosts), running.entries(kNatHosts),
                    running.entries(kNatServers), running.entries(kNatTriggers)};
    Rules rules;
    rules.line(
        "# NAT and IP filters of the router, written by its configuration service at every change: nft -f loads");
    rules.line("# them in the place of those before.");
    rules.line("table ip router_manager");
    rules.line("delete table ip router_manager");
    rules.line("table ip router_manager {");
    for (std::size_t i = 1; i <= nat.triggers.size(); i++)
        rules.line("    map trigger_%zu { type ether_type : ipv4_addr; flags dynamic, timeout; }", i);
    chain("nat_triggers { type filter hook forward priority mangle", nat, rules, write_triggers);
    chain("nat_in { type nat hook prerouting priority dstnat", nat, rules, write_redirections);
    chain("nat_out { type nat hook postrouting priority srcnat", nat, rules, write_translation);
    for (const FilterChain& each : kFilterChains) {
        rules.line("    chain %s; policy accept;", each.head);
        rules.line("        ct state established,related accept");
        for (const Entry& byDefault : running.entries(kIpFilterDefaults))
            write_filters(each, byDefault, running.entries(kIpFilters), rules);
        rules.line("    }");
    }
    rules.line("}");
    return rules.take();
}

int apply_firewall(const Service& service) { return service.rules.write(firewall_rules(service)); }
