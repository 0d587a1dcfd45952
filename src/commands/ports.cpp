// The device's ports: what there is, the link of the LAN port, and the frame counters of the LAN and wireless ports.
#include "service/fields/ports.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/port_request.h"
#include "service/fields/interfaces.h"
#include "service/fields/system.h"
#include "values/format.h"
#include "values/interface_names.h"

namespace {
namespace counters = port_statistics_record;

constexpr char kPortRow[] = "%-12s%-19s%-16s%-5s\n";
constexpr char kLinkRow[] = "%-20s%-25s\n";
constexpr std::size_t kMaxPorts = 32;  // more than any device of this family has
constexpr std::uint8_t kUnlistedKind = interface_entry::kBridge;

struct PortNames {
    char name[kMaxPorts][interface_entry::port.at.width];
    std::size_t count;
};

// Copied before the release: the system record is asked for next, and a response lives until the next request.
PortNames read_port_names()
{
    PortNames ports{};
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadPort);
    for (unsigned char* entry : list.table(interface_entry::kSize)) {
        if (interface_entry::type.get(entry) == kUnlistedKind || ports.count == kMaxPorts) continue;
        std::snprintf(ports.name[ports.count++], sizeof ports.name[0], "%s", interface_entry::port.get(entry));
    }
    return ports;
}

const char* up_or_down(bool up) { return up ? "Up" : "Down"; }

void print_port(const char* name)
{
    const std::uint16_t links = system_record::links.get(usrComParam);
    const char *mac = "n/a", *state = "n/a";
    if (std::strcmp(name, GetPortNameFromInterface(GetLanIfName(0))) == 0) {
        mac = CliFormatMAC(system_record::lanMac.get(usrComParam));
        state = up_or_down(links & system_record::kLanUp);
    } else if (std::strcmp(name, GetPortNameFromInterface(GetWLanIfName(0))) == 0) {
        mac = CliFormatMAC(system_record::wirelessMac.get(usrComParam));
        state = up_or_down(links & system_record::kWirelessUp);
    }
    std::printf(kPortRow, name, mac, name, state);
}

// One row of the frame counter table; the LAN and the wireless port keep theirs in different places.
struct CounterRow {
    const char* port;
    const char* (*interface)(unsigned index);
    Field<std::uint32_t> received, transmitted, oneError, otherError;
};
constexpr CounterRow kCounterRows[] = {
    {"lan", GetLanIfName, counters::goodReceived, counters::goodTransmitted, counters::badTransmitted,
     counters::badReceived},
    {"wlan", GetWLanIfName, counters::wirelessReceived, counters::wirelessTransmitted, counters::wirelessReceiveErrors,
     counters::wirelessTransmitErrors},
};
}  // namespace

void CliShowPort(ActionBlock&, int)
{
    const PortNames ports = read_port_names();
    read_record(code::kReadSystem);
    std::printf(kPortRow, "Port Name", "MAC address", "Description", "State");
    std::printf("----------------------------------------------------\n");
    for (std::size_t i = 0; i < ports.count; ++i) print_port(ports.name[i]);
}

void CliShowPortLan(ActionBlock&, int)
{
    ComParam link;
    report_port_error(ask_about_interface(link, code::kReadLink, link_record::interface, GetLanIfName(0)));
    read_record(code::kReadSystem);

    std::printf(kLinkRow, "Port Name:", GetPortNameFromInterface(GetLanIfName(0)));
    std::printf(kLinkRow, "Link State:", up_or_down(link_record::up.get(link)));
    std::printf(kLinkRow, "Link Speed:", link_record::speed.get(link) == link_record::kHundred ? "100Mbps" : "10Mbps");
    std::printf(kLinkRow, "Duplex Mode:", link_record::duplex.get(link) == link_record::kFull ? "Full" : "Half");
    std::printf(kLinkRow, "Flow Control:", link_record::flowControl.get(link) ? "Enabled" : "Disabled");
    std::printf(kLinkRow, "MAC Address:", CliFormatMAC(system_record::lanMac.get(usrComParam)));
}

void CliShowPortStats(ActionBlock&, int)
{
    std::printf("%-12s%-15s%-15s%-12s\n", "Port", "Received", "Transmitted", "Error");
    std::printf("%-12s%-15s%-15s%-12s\n", "Name", "Frames", "Frames", "Frames");
    std::printf("------------------------------------------------\n");
    for (const CounterRow& row : kCounterRows) {
        ComParam answer;
        report_port_error(
            ask_about_interface(answer, code::kReadPortStatistics, counters::interface, row.interface(0)));
        std::printf("%-12s%-15" PRIu32 "%-15" PRIu32 "%-12" PRIu32 "\n", row.port, row.received.get(answer),
                    row.transmitted.get(answer), row.oneError.get(answer) + row.otherError.get(answer));
    }
}
