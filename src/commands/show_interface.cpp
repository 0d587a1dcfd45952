// show interface <name>: everything that is known about one interface, its counters included.
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands/answers.h"
#include "commands/command.h"
#include "commands/port_request.h"
#include "commands/port_statistics.h"
#include "service/fields/interfaces.h"
#include "service/fields/ports.h"
#include "values/format.h"

namespace {
namespace counters = port_statistics_record;
using namespace interface_entry;

constexpr char kTextRow[] = " %-16s %s\n";
constexpr char kNumberRow[] = " %-16s %" PRIu32 "\n";
constexpr const char* kTypes[] = {"unknown", "ethernet", "ethernet(wireless)", "bridge", "pppoe", "pptp",
                                  "vlan",    "bonding"};

void print_row(const char* label, const char* text) { std::printf(kTextRow, label, text); }

const char* side_of(std::uint32_t set)
{
    if (set & kSystemLan) return "system LAN";
    return set & kWan ? "WAN" : "-";
}

void print_interface(unsigned char* entry)
{
    const unsigned number = type.get(entry);
    const std::uint32_t set = flags.get(entry);
    print_row("name:", name.get(entry));
    print_row("type:", kTypes[number < std::size(kTypes) ? number : 0]);
    print_row("state:", state.get(entry) == kUp ? "up" : "down");
    print_row("port:", port.get(entry));
    print_row("side:", side_of(set));
    print_row("H/W address:", CliFormatMAC(mac.get(entry)));
    std::printf(kNumberRow, "MTU:", mtu.get(entry));
    print_row("IP address:", address_or_unspecified(address.get(entry)));
    print_row("IP netmask:", address_or_unspecified(netmask.get(entry)));
    print_row("ping:", set & kPingAllowed ? "allowed" : "not allowed");
}

void print_wireless_counters(const ComParam& answer)
{
    std::printf(kNumberRow, "rx-packet:", counters::wirelessReceived.get(answer));
    std::printf(kNumberRow, "rx-error:", counters::wirelessReceiveErrors.get(answer));
    std::printf(kNumberRow, "tx-packet:", counters::wirelessTransmitted.get(answer));
    std::printf(kNumberRow, "tx-error:", counters::wirelessTransmitErrors.get(answer));
}

// A port that this machine does not have at the moment counts nothing.
void print_counters(const char* interface, bool isWireless)
{
    ComParam answer;
    const Outcome read = ask_about_interface(answer, code::kReadPortStatistics, counters::interface, interface);
    if (read.exchange == 0 && read.status == kStatusNoDevice)
        print_row("counters:", "none, the interface is not there");
    else if (!read.ok())
        CliPrintServiceError(read.reason(), kInterfaceGroup);
    else if (isWireless)
        print_wireless_counters(answer);
    else
        CliShowPortStatsGen(interface);
}

// The entry of the interface is copied to `found`, as it outlives the answer.
enum class Lookup { kFound, kUnknown, kFailed };
Lookup find_interface(const char* wanted, unsigned char* found)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadPort);
    if (!list.ok()) {
        CliPrintServiceError(list.outcome().reason(), kSystemGroup);
        return Lookup::kFailed;
    }
    for (unsigned char* entry : list.table(kSize)) {
        if (std::strcmp(name.get(entry), wanted) != 0) continue;
        std::memcpy(found, entry, kSize);
        return Lookup::kFound;
    }
    return Lookup::kUnknown;
}
}  // namespace

void CliShowIfParm(ActionBlock& call, int)
{
    unsigned char entry[kSize];
    const Lookup lookup = find_interface(text_parm(call, 0), entry);
    if (lookup == Lookup::kUnknown) std::printf(" no such interface!\n");
    if (lookup != Lookup::kFound) return;
    print_interface(entry);
    print_counters(name.get(entry), type.get(entry) == kWireless);
}
