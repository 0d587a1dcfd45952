// NAT: what is set, and switching it.
#include "commands/nat.h"

#include <cstdio>
#include <cstring>

#include "commands/answers.h"
#include "commands/command.h"
#include "console/messages.h"
#include "service/fields/nat.h"
#include "values/format.h"

namespace {
constexpr std::uint16_t kEnableCommand = 137;  // one action for both: `disable nat` is 138

constexpr char kInterfaceRow[] = " %-15s %-8s %s\n";
constexpr char kDmzHead[] = " %-30s %-15s %-15s %s\n";
constexpr char kServerRow[] = " %-20.20s %-15s %-5s %-11s ";
constexpr char kTriggerRow[] = " %-20.20s %-5s %-5s %-6s ";
constexpr char kNameRest[] = " %s\n";
constexpr std::size_t kNameColumn = 20;

constexpr const char* kProtocols[] = {"?", "tcp", "udp", "both"};
const char* protocol_text(std::uint8_t protocol) { return kProtocols[protocol <= kNatBoth ? protocol : 0]; }

bool is_wanted(const char* value, const char* only) { return *only == '\0' || std::strcmp(value, only) == 0; }

// A name that is longer than its column goes on below it.
void end_row(const char* name)
{
    std::printf("\n");
    if (std::strlen(name) > kNameColumn) std::printf(kNameRest, name + kNameColumn);
}

void print_dmz_host(unsigned char* entry)
{
    const std::uint32_t outside = dmz_entry::natAddress.get(entry);
    // One formatter buffer, two addresses: each is printed before the next is made.
    std::printf(" %-30s %-15s %-15s ", dmz_entry::name.get(entry), dmz_entry::interface.get(entry),
                outside ? CliFormatIPv4(outside) : "-");
    std::printf("%s\n", CliFormatIPv4(dmz_entry::dmzAddress.get(entry)));
}

void print_server(unsigned char* entry)
{
    using namespace nat_server_entry;
    std::printf(kServerRow, name.get(entry), interface.get(entry), protocol_text(protocol.get(entry)),
                ports_text(publicFirst.get(entry), publicLast.get(entry)));
    std::printf("%-11s %s", ports_text(localFirst.get(entry), localLast.get(entry)), CliFormatIPv4(server.get(entry)));
    end_row(name.get(entry));
}

void print_trigger(unsigned char* entry)
{
    using namespace nat_trigger_entry;
    std::printf(kTriggerRow, name.get(entry), protocol_text(protocol.get(entry)),
                ports_text(port.get(entry), port.get(entry)), protocol_text(openedProtocol.get(entry)));
    const char* separator = "";
    for (const Range& range : kOpened) {
        if (range.first.get(entry) == 0) break;
        std::printf("%s%s", separator, ports_text(range.first.get(entry), range.last.get(entry)));
        separator = ",";
    }
    end_row(name.get(entry));
}

void show_all(const char* interface)
{
    if (!show_nat_interfaces(interface)) return;
    std::printf("\n");
    if (!show_dmz_hosts(interface, kAnyOf)) return;
    std::printf("\n");
    if (!show_nat_servers(interface, kAnyOf)) return;
    std::printf("\n");
    show_nat_triggers(kAnyOf);
}
}  // namespace

bool report_nat(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kNatGroup);
    return outcome.ok();
}

bool show_nat_interfaces(const char* interface)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    nat_record::interface.set(usrComParam, interface);
    const Exchange nat(code::kReadNat);
    if (!report_nat(nat.outcome())) return false;
    std::printf(kInterfaceRow, "interface", "NAT", "IP address");
    for (unsigned char* entry : nat.table(nat_entry::kSize))
        std::printf(kInterfaceRow, nat_entry::interface.get(entry),
                    nat_entry::enabled.get(entry) ? "enabled" : "disabled",
                    address_or_unspecified(nat_entry::address.get(entry)));
    return true;
}

bool show_dmz_hosts(const char* interface, const char* name)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange hosts(code::kReadDmz);
    if (!report_nat(hosts.outcome())) return false;
    std::printf(kDmzHead, "DMZ", "interface", "NAT IP", "DMZ IP");
    for (unsigned char* entry : hosts.table(dmz_entry::kSize))
        if (is_wanted(dmz_entry::interface.get(entry), interface) && is_wanted(dmz_entry::name.get(entry), name))
            print_dmz_host(entry);
    return true;
}

bool show_nat_servers(const char* interface, const char* name)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange servers(code::kReadNatRedirect);
    if (!report_nat(servers.outcome())) return false;
    std::printf(kServerRow, "redirect server", "interface", "proto", "public port");
    std::printf("%-11s %s\n", "local port", "server IP");
    for (unsigned char* entry : servers.table(nat_server_entry::kSize))
        if (is_wanted(nat_server_entry::interface.get(entry), interface) &&
            is_wanted(nat_server_entry::name.get(entry), name))
            print_server(entry);
    return true;
}

bool show_nat_triggers(const char* name)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange triggers(code::kReadNatTrigger);
    if (!report_nat(triggers.outcome())) return false;
    std::printf(kTriggerRow, "redirect trigger", "proto", "port", "opened");
    std::printf("opened ports\n");
    for (unsigned char* entry : triggers.table(nat_trigger_entry::kSize))
        if (is_wanted(nat_trigger_entry::name.get(entry), name)) print_trigger(entry);
    return true;
}

unsigned char* new_nat_entry(const char* name)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    nat_server_entry::name.set(carried_entry(usrComParam), name);
    return carried_entry(usrComParam);
}

bool NatSurroundings::is_lan_host(std::uint32_t address) const
{
    const std::uint32_t host = address & ~lanNetmask;
    return ((address ^ lanAddress) & lanNetmask) == 0 && address != lanAddress && host != 0 && host != ~lanNetmask;
}

bool read_nat_surroundings(NatSurroundings& found)
{
    found = {};
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange nat(code::kReadNat);
    if (!report_nat(nat.outcome())) return false;
    found.lanAddress = nat_record::lanAddress.get(usrComParam);
    found.lanNetmask = nat_record::lanNetmask.get(usrComParam);
    for (unsigned char* entry : nat.table(nat_entry::kSize)) {
        if (found.interfaces.count == kMaxInterfaces) break;
        std::snprintf(found.interfaces.name[found.interfaces.count++], kInterfaceNameSize, "%s",
                      nat_entry::interface.get(entry));
    }
    return true;
}

void CliShowNat(ActionBlock&, int) { show_all(kAnyOf); }
void CliShowNatParm(ActionBlock& call, int) { show_all(text_parm(call, 0)); }

void CliEnableNat(ActionBlock& call, int term)
{
    const char* interface = text_parm(call, 0);
    const bool enables = call.cmdId == kEnableCommand;
    std::memset(&usrComParam, 0, sizeof usrComParam);
    nat_record::interface.set(usrComParam, interface);
    nat_record::enabled.set(usrComParam, enables);
    if (!report_nat(write_record(code::kEnableNat))) return;
    PrintMsg(term, enables ? kNatEnabled : kNatDisabled);
    show_nat_interfaces(interface);
}
