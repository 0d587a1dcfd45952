// The counters of the wireless port, and clearing them.
#include <cinttypes>
#include <cstdio>
#include <initializer_list>

#include "commands/command.h"
#include "commands/port_request.h"
#include "service/fields/ports.h"
#include "values/format.h"
#include "values/interface_names.h"

namespace {
namespace counters = port_statistics_record;

constexpr char kRow[] = "%-30s%-12s%-12s\n";
constexpr char kNumbers[] = "%-30s%-12" PRIu32 "%-12" PRIu32 "\n";
constexpr char kReason[] = "\n%s\n";
constexpr char kNotKnown[] = "n/a";
}  // namespace

void CliShowPortStatsWlan(ActionBlock&, int)
{
    ComParam answer;
    report_port_error(ask_about_interface(answer, code::kReadPortStatistics, counters::interface, GetWLanIfName(0)));

    std::printf(kRow, "", "Received", "Transmitted");
    std::printf("-----------------------------------------------------\n");
    std::printf(kRow, "Total Octets", kNotKnown, kNotKnown);
    std::printf(kNumbers, "Total Packets", counters::wirelessReceived.get(answer),
                counters::wirelessTransmitted.get(answer));
    std::printf(kNumbers, "Total Error", counters::wirelessReceiveErrors.get(answer),
                counters::wirelessTransmitErrors.get(answer));

    std::printf(kReason, "[Reason for Receive Discards]");
    for (const char* reason : {"No Buffer", "Received WEP Errors", "Frame Checksum Errors"})
        std::printf(kRow, reason, kNotKnown, "");
    std::printf(kReason, "[Reason for Transmit Discards]");
    for (const char* reason : {"Wrong Source Address", "Retry Limit Exceeded", "Other Reasons"})
        std::printf(kRow, reason, "", kNotKnown);
}

void CliClearPortStatsWlan(ActionBlock&, int)
{
    if (const Outcome cleared = read_record(code::kClearWirelessPort); !cleared.ok())
        CliPrintServiceError(cleared.reason(), kWirelessGroup);
    else
        std::printf("statistics counter of wlan cleared.\n");
}
