// The MAC filter: a mode, and a list of named addresses that it grants or denies.
#include "service/fields/mac_filter.h"

#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands/command.h"
#include "commands/named_mac.h"

namespace {
constexpr char kHeader[] = "Filter Name     MAC address\n---------------------------------\n";
constexpr char kRow[] = "%-15.15s %s\n";

// What was set and what is shown name mode 0 differently, on purpose.
constexpr const char* kConfirmed[] = {"disable", "grant", "deny"};
constexpr const char* kShown[] = {"disabled", "grant", "deny"};

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kWirelessGroup);
    return outcome.ok();
}

void show_entries(const char* onlyName)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange filter(code::kReadMacFilter);
    if (!report(filter.outcome())) return;

    std::printf("%s", kHeader);
    for (unsigned char* entry : filter.table(named_mac_entry::kSize)) {
        const char* name = named_mac_entry::name.get(entry);
        if (!onlyName || std::strcmp(name, onlyName) == 0) print_named_mac(kRow, name, named_mac_entry::mac.get(entry));
    }
}
}  // namespace

void CliSetMacFtrMode(ActionBlock& call, int)
{
    const Word mode = call.parms.value[call.parms.count - 1];
    if (mode >= std::size(kConfirmed)) {
        std::printf("No such filter mode.\n");
        return;
    }
    std::memset(&usrComParam, 0, sizeof usrComParam);
    mac_filter_record::mode.set(usrComParam, static_cast<std::uint16_t>(mode));
    if (report(write_record(code::kWriteMacFilterMode))) std::printf("MAC filter mode: %s\n", kConfirmed[mode]);
}

void CliAddMacFtr(ActionBlock& call, int)
{
    const char* name = text_parm(call, call.parms.count - 3);
    std::memset(&usrComParam, 0, sizeof usrComParam);
    mac_filter_record::name.set(usrComParam, name);
    mac_filter_record::mac.set(usrComParam, last_mac_parm(call));
    if (!report(write_record(code::kAddMacFilter))) return;

    std::printf("%s", kHeader);
    print_named_mac(kRow, name, last_mac_parm(call));
}

void CliDeleteMacFtr(ActionBlock& call, int)
{
    const char* name = text_parm(call, 0);
    std::memset(&usrComParam, 0, sizeof usrComParam);
    mac_filter_record::name.set(usrComParam, name);
    if (report(write_record(code::kDeleteMacFilter)))
        std::printf("MAC filter %s is deleted.\n", name);
    else
        std::printf("Delete Mac Filter: %s Fail\r\n", name);
}

void CliShowMacFtr(ActionBlock&, int) { show_entries(nullptr); }
void CliShowMacFtrName(ActionBlock& call, int) { show_entries(text_parm(call, 0)); }

void CliShowMacFtrMode(ActionBlock&, int)
{
    if (!report(read_record(code::kReadMacFilter))) return;
    const std::uint16_t mode = mac_filter_record::mode.get(usrComParam);
    std::printf("MAC filter mode: %s\n", mode < std::size(kShown) ? kShown[mode] : "unknown");
}
