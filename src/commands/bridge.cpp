// The bridge that joins the LAN ports, and its spanning tree. No typed line reaches these yet: rows of the command
// table with their identifiers make them available.
#include "service/fields/bridge.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands/command.h"
#include "commands/named_mac.h"

namespace {
constexpr const char* kStates[] = {"disabled", "listening", "learning", "forwarding", "blocking"};
constexpr unsigned kHundredths = 100;

bool report(const Outcome& outcome)
{
    if (outcome.ok()) return true;
    const bool none =
        outcome.exchange == 0 && (outcome.status == kStatusNoDevice || outcome.status == kStatusUnknownInterface);
    if (none)
        std::printf("This device has no bridge\n");
    else
        CliPrintServiceError(outcome.reason(), kInterfaceGroup);
    return false;
}

unsigned char* port_at(std::size_t index)
{
    return usrComParam.bytes + bridge_record::kFirstPort + index * bridge_port::kSize;
}

std::size_t ports() { return std::min<std::size_t>(bridge_record::ports.get(usrComParam), bridge_record::kMostPorts); }

const char* port_name(std::uint16_t number)
{
    for (std::size_t i = 0; i < ports(); ++i)
        if (bridge_port::number.get(port_at(i)) == number) return bridge_port::name.get(port_at(i));
    return "-";
}

void print_stp()
{
    std::printf("Spanning tree of %s: %s\n", bridge_record::name.get(usrComParam),
                bridge_record::stp.get(usrComParam) ? "enabled" : "disabled");
}

void switch_stp(bool on)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    bridge_record::stp.set(usrComParam, on);
    if (report(write_record(code::kWriteBridge))) print_stp();
}

// only: nullptr for every port. False when there is none of that name.
bool print_ports(const char* only)
{
    bool found = !only;
    for (std::size_t i = 0; i < ports(); ++i) {
        unsigned char* port = port_at(i);
        if (only && std::strcmp(bridge_port::name.get(port), only) != 0) continue;
        const unsigned state = bridge_port::state.get(port);
        std::printf("%-16s %-11s %-7u %u\n", bridge_port::name.get(port),
                    state < std::size(kStates) ? kStates[state] : "unknown", bridge_port::cost.get(port),
                    bridge_port::priority.get(port));
        found = true;
    }
    return found;
}
constexpr char kPortHeading[] = "Port             State       Cost    Priority\n"
                                "----------------------------------------------\n";
}  // namespace

void CliEnableStpRouter(ActionBlock&, int) { switch_stp(true); }
void CliDisableStpRouter(ActionBlock&, int) { switch_stp(false); }

void CliShowStpRouter(ActionBlock&, int)
{
    if (!report(read_record(code::kReadBridgeTable))) return;
    print_stp();
    std::printf("Bridge id: %s\n", bridge_record::id.get(usrComParam));
    std::printf("Root id:   %s, cost %u\n\n%s", bridge_record::root.get(usrComParam),
                bridge_record::rootCost.get(usrComParam), kPortHeading);
    print_ports(nullptr);
}

void CliShowStpParmRouter(ActionBlock& call, int)
{
    if (!report(read_record(code::kReadBridgeTable))) return;
    std::printf("%s", kPortHeading);
    if (!print_ports(text_parm(call, 0))) std::printf("The bridge has no port of that name\n");
}

void CliShowBrgTblRouter(ActionBlock&, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange bridge(code::kReadBridgeTable);
    if (!report(bridge.outcome())) return;
    std::printf("MAC Address        Port             Age (s)\n-------------------------------------------\n");
    for (const unsigned char* entry : bridge.table(bridge_entry::kSize)) {
        std::printf("%s  %-16s ", upper_mac(bridge_entry::mac.get(entry)), port_name(bridge_entry::port.get(entry)));
        if (bridge_entry::own.get(entry))
            std::printf("own\n");
        else
            std::printf("%u\n", bridge_entry::age.get(entry) / kHundredths);
    }
}
