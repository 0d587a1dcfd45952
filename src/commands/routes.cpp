// Static routes, the default route, and the routing table that follows every change of them.
#include "service/fields/routes.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "commands/command.h"
#include "prompts/validators.h"
#include "values/format.h"
#include "values/ip_address.h"

namespace {
struct FlagLetter {
    unsigned bit;
    char letter;
};
// The route flags of the Linux kernel: up, gateway, host, reinstate, dynamic, modified, address-configured, cache.
constexpr FlagLetter kFlagLetters[] = {
    {0, 'U'}, {1, 'G'}, {2, 'H'}, {3, 'R'}, {4, 'D'}, {5, 'M'}, {18, 'A'}, {24, 'C'},
};

void print_route(unsigned char* entry)
{
    char letters[std::size(kFlagLetters) + 1] = {};
    char* next = letters;
    for (const FlagLetter& flag : kFlagLetters)
        if (route_entry::flags.get(entry) >> flag.bit & 1) *next++ = flag.letter;

    // One formatter buffer, three addresses: each column is printed before the next is made.
    std::printf("%-15s ", CliFormatIPv4(route_entry::destination.get(entry)));
    std::printf("%-15s ", CliFormatIPv4(route_entry::gateway.get(entry)));
    std::printf("%-15s ", CliFormatIPv4(route_entry::netmask.get(entry)));
    std::printf("%-6d %-7s %-s\n", static_cast<int>(route_entry::hops.get(entry)), route_entry::interface.get(entry),
                letters);
}

void CliShowIpRoutingTable()
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange routes(code::kReadRoutes);
    if (!routes.ok()) {
        std::printf("error.\n");
        return;
    }
    std::printf("Destination     Gateway         Genmask         hop    Ifname  Flags\n"
                "--------------------------------------------------------------------\n");
    for (unsigned char* entry : routes.table(route_entry::kSize)) print_route(entry);
}

// Sends the route that stands in usrComParam and shows what the table then holds.
void change_routes(std::uint16_t code)
{
    if (const Outcome changed = write_record(code); !changed.ok())
        CliPrintServiceError(changed.reason(), kSystemGroup);
    else
        CliShowIpRoutingTable();
}

void clear_request() { std::memset(&usrComParam, 0, sizeof usrComParam); }

void set_target(const ActionBlock& call)
{
    route_request::destination.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[0]));
    route_request::netmask.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[1]));
}
}  // namespace

// The third parameter is a gateway when it reads as an address, else the name of an interface.
void CliAddIpRoute(ActionBlock& call, int)
{
    char* gateway = reinterpret_cast<char*>(call.parms.value[2]);
    clear_request();
    set_target(call);
    route_request::hops.set(usrComParam, static_cast<std::uint32_t>(std::strtoul(text_parm(call, 3), nullptr, 10)));
    if (ParmList words{}; parse_ip_addr(gateway, words) == 0)
        route_request::gateway.set(usrComParam, static_cast<std::uint32_t>(words.value[0]));
    else
        route_request::interface.set(usrComParam, gateway);
    change_routes(code::kAddRoute);
}

void CliAddIpDftRoute(ActionBlock& call, int)
{
    clear_request();
    route_request::gateway.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[0]));
    change_routes(code::kAddRoute);
}

void CliDelIpRoute(ActionBlock& call, int)
{
    clear_request();
    set_target(call);
    change_routes(code::kDeleteRoute);
}

void CliDelIpDftRoute(ActionBlock&, int)
{
    clear_request();
    change_routes(code::kDeleteRoute);
}
