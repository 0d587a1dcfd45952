// The counters of one Ethernet interface in detail, and clearing them.
#include "commands/port_statistics.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/port_request.h"
#include "service/fields/interfaces.h"
#include "service/fields/ports.h"
#include "values/format.h"
#include "values/interface_names.h"

namespace {
namespace counters = port_statistics_record;

struct DetailRow {
    const char* lanLabel;                               // in the LAN port's own table
    const char* generalLabel;                           // in the table of a named interface, spelt so on purpose
    const Field<std::uint32_t>*received, *transmitted;  // null: the column stays empty
};
constexpr DetailRow kRows[] = {
    {"Good Transmitted Packets", "good Transmitted Packets", nullptr, &counters::goodTransmitted},
    {"Good Received Packets", "good Received Packets", &counters::goodReceived, nullptr},
    {"Bad Transmitted Packets", "bad Transmitted Packets", nullptr, &counters::badTransmitted},
    {"Bad Received Packets", "bad Received Packets", &counters::badReceived, nullptr},
    {"Transmit Abort", "transmit Abort", nullptr, &counters::transmitAborts},
    {"Collision", "collision", nullptr, &counters::collisions},
    {"Dropped Packets", "dropped Packets", &counters::droppedReceived, &counters::droppedTransmitted},
};

constexpr char kDashes[] = "--------------------------------------------------\n";

void print_counter(const Field<std::uint32_t>* counter, const ComParam& answer)
{
    if (counter)
        std::printf("%-12" PRIu32, counter->get(answer));
    else
        std::printf("%-12s", "");
}

void print_rows(const ComParam& answer, const char* margin, const char* DetailRow::*label)
{
    for (const DetailRow& row : kRows) {
        std::printf("%s%-27s", margin, row.*label);
        print_counter(row.received, answer);
        print_counter(row.transmitted, answer);
        std::printf("\n");
    }
}

// The name of the interface that has `flag`; the last in table order when several have it. Empty when none has.
struct InterfaceName {
    char text[interface_entry::name.at.width];
};

bool find_interface(std::uint32_t flag, InterfaceName& found)
{
    found = {};
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadPort);
    if (!list.ok()) {
        CliPrintServiceError(list.outcome().reason(), kSystemGroup);
        return false;
    }
    for (unsigned char* entry : list.table(interface_entry::kSize))
        if (interface_entry::flags.get(entry) & flag)
            std::snprintf(found.text, sizeof found.text, "%s", interface_entry::name.get(entry));
    return found.text[0] != 0;
}

void show_interface_with(std::uint32_t flag)
{
    if (InterfaceName interface; find_interface(flag, interface)) CliShowPortStatsGen(interface.text);
}

void clear_interface_with(std::uint32_t flag)
{
    InterfaceName interface;
    if (!find_interface(flag, interface)) return;

    ComParam answer;
    const Outcome cleared =
        ask_about_interface(answer, code::kClearPortStatistics, counters::interface, interface.text);
    if (cleared.exchange)
        CliPrintServiceError(cleared.exchange, kSystemGroup);
    else if (cleared.status)
        std::printf(" error occurs: %d\n\n", static_cast<int>(cleared.status));
    else
        show_interface_with(flag);
}
}  // namespace

void CliShowPortStatsGen(const char* interface)
{
    ComParam answer;
    if (!report_port_error(ask_about_interface(answer, code::kReadPortStatistics, counters::interface, interface)))
        return;
    std::printf(" %-27s%-12s%-12s\n %s", "", "received", "transmitted", kDashes);
    print_rows(answer, " ", &DetailRow::generalLabel);
}

void CliShowPortStatsLan(ActionBlock&, int)
{
    ComParam answer;
    report_port_error(ask_about_interface(answer, code::kReadPortStatistics, counters::interface, GetLanIfName(0)));
    std::printf("%-27s%-12s%-12s\n%s", "", "Received", "Transmitted", kDashes);
    print_rows(answer, "", &DetailRow::lanLabel);
}

void CliShowPortStatsSyslan(ActionBlock&, int) { show_interface_with(interface_entry::kSystemLan); }
void CliShowPortStatsSyswan(ActionBlock&, int) { show_interface_with(interface_entry::kWan); }
void CliClearPortStatsSyslan(ActionBlock&, int) { clear_interface_with(interface_entry::kSystemLan); }
void CliClearPortStatsSyswan(ActionBlock&, int) { clear_interface_with(interface_entry::kWan); }

// The confirmation follows a refusal too, as it always did; the refusal stands above it.
void CliClearPortStatsLan()
{
    ComParam answer;
    report_port_error(ask_about_interface(answer, code::kClearPortStatistics, counters::interface, GetLanIfName(0)));
    std::printf("statistics counter of lan cleared.\n");
}

void CliClearPortStatsAll(ActionBlock& call, int term)
{
    CliClearPortStatsLan();
    CliClearPortStatsWlan(call, term);
}
