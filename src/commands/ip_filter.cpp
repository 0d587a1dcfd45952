// IP filters: what is set, the default action of an interface, and deleting.
#include "commands/ip_filter.h"

#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands/answers.h"
#include "commands/command.h"
#include "commands/interface_list.h"
#include "console/messages.h"
#include "service/fields/ip_filter.h"
#include "values/format.h"

const SelectEntry kFilterDirections[] = {
    {ip_filter_entry::kInbound, "inbound"}, {ip_filter_entry::kOutbound, "outbound"}, {kNoSelection, nullptr}};
const SelectEntry kFilterProtocols[] = {{ip_filter_entry::kAny, "any"},   {ip_filter_entry::kTcp, "tcp"},
                                        {ip_filter_entry::kUdp, "udp"},   {ip_filter_entry::kIcmp, "icmp"},
                                        {ip_filter_entry::kIgmp, "igmp"}, {kNoSelection, nullptr}};

namespace {
constexpr SelectEntry kActions[] = {{ip_filter_record::kGrant, "grant"},
                                    {ip_filter_record::kDeny, "deny"},
                                    {ip_filter_record::kDisable, "disable"},
                                    {kNoSelection, nullptr}};

// What a filter does is the opposite of the default action, which is worth saying each time.
constexpr const char* kActionTexts[] = {"disable (filters are not used)", "grant (filters deny)",
                                        "deny (filters grant)"};

constexpr char kActionRow[] = " %-15s %s\n";
constexpr char kFilterRow[] = " %-30s %-15s %-9s %s\n";
constexpr std::uint32_t kSingleHost = 0xffffffff;

void print_end(const char* label, std::uint32_t address, std::uint32_t netmask, unsigned first, unsigned last)
{
    std::printf("   %-12s ", label);
    std::printf("%s", netmask ? CliFormatIPv4(address) : "any");
    if (netmask != 0 && netmask != kSingleHost) std::printf("/%s", CliFormatIPv4(netmask));
    if (last != 0) std::printf(" port %s", ports_text(first, last));
    std::printf("\n");
}

void print_filter(unsigned char* entry)
{
    using namespace ip_filter_entry;
    std::printf(kFilterRow, name.get(entry), interface.get(entry),
                selected_text(direction.get(entry), kFilterDirections),
                selected_text(protocol.get(entry), kFilterProtocols));
    print_end("source", sourceAddress.get(entry), sourceNetmask.get(entry), sourceFirst.get(entry),
              sourceLast.get(entry));
    print_end("destination", destinationAddress.get(entry), destinationNetmask.get(entry), destinationFirst.get(entry),
              destinationLast.get(entry));
}

void ask_for(const char* interface)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    ip_filter_record::interface.set(usrComParam, interface);
}

void print_action_head() { std::printf(kActionRow, "interface", "default action"); }

bool print_action(const char* interface)
{
    ask_for(interface);
    if (!report_filter(write_record(code::kReadIpFilter))) return false;
    const std::uint32_t action = ip_filter_record::action.get(usrComParam);
    std::printf(kActionRow, interface, action < std::size(kActionTexts) ? kActionTexts[action] : "unknown");
    return true;
}
}  // namespace

bool report_filter(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kFilterGroup);
    return outcome.ok();
}

void show_filters(const char* interface, const char* name)
{
    ask_for(interface);
    const Exchange filters(code::kReadIpFilter);
    if (!report_filter(filters.outcome())) return;
    std::printf(kFilterRow, "filter", "interface", "direction", "protocol");
    for (unsigned char* entry : filters.table(ip_filter_entry::kSize))
        if (*name == '\0' || std::strcmp(ip_filter_entry::name.get(entry), name) == 0) print_filter(entry);
}

void CliShowIpFilter(ActionBlock&, int)
{
    InterfaceNames names;
    if (CliGetIfNames(names) == 0) return;
    print_action_head();
    for (int i = 0; i < names.count; ++i)
        if (!print_action(names.name[i])) return;
    show_filters("", "");
}

void CliShowIpFilterParm(ActionBlock& call, int)
{
    const char* interface = text_parm(call, 0);
    InterfaceNames names;
    if (CliGetIfNames(names) == 0) return;
    if (!names.has(interface)) {
        std::printf(" no such interface!\n");
        return;
    }
    print_action_head();
    if (print_action(interface)) show_filters(interface, "");
}

void CliSetIpFilter(ActionBlock& call, int term)
{
    const char* interface = text_parm(call, 0);
    const std::uint32_t action = CliFindSelect(text_parm(call, 1), kActions);
    if (action > kLastSelection) {
        PrintMsg(term, kFilterActionRule);
        return;
    }
    ask_for(interface);
    ip_filter_record::action.set(usrComParam, action);
    if (!report_filter(write_record(code::kWriteIpFilter))) return;
    print_action_head();
    print_action(interface);
}

void CliDeleteIpFilter(ActionBlock& call, int)
{
    const char* name = text_parm(call, 0);
    std::memset(&usrComParam, 0, sizeof usrComParam);
    ip_filter_entry::name.set(carried_entry(usrComParam), name);
    if (report_filter(write_record(code::kDeleteIpFilter))) std::printf("IP filter %s is deleted.\n", name);
}
