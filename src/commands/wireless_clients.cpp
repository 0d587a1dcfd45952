// The stations that the radio knows, with their states and counters.
#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands/command.h"
#include "commands/named_mac.h"
#include "service/fields/ports.h"

namespace {
namespace client = wireless_client_entry;

constexpr const char* kStates[] = {"Authenticated", "Associated", "Authorized", "Deny by ACL", "Unauthorized"};

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kWirelessGroup);
    return outcome.ok();
}

// Asks for the table, prints its head, and hands every client to `row`.
template <class Row> void show_clients(const char* head, Row row)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange clients(code::kReadWirelessClients);
    if (!report(clients.outcome())) return;
    std::printf("%s", head);
    for (const unsigned char* entry : clients.table(client::kSize)) row(entry);
}
}  // namespace

void CliShowWirelessCltTable(ActionBlock&, int)
{
    const char* state = "";  // a state without a name shows the one above it
    show_clients("MAC Address          State\n----------------------------------\n", [&](const unsigned char* entry) {
        const unsigned number = client::state.get(entry);
        if (number >= 1 && number <= std::size(kStates)) state = kStates[number - 1];
        std::printf("%-20s %s\n", upper_mac(client::mac.get(entry)), state);
    });
}

void CliShowWirelessCltStatics(ActionBlock&, int)
{
    show_clients("MAC Address          TX         RX         TX         RX\n"
                 "                     Frames     Frames     Bytes      Bytes\n"
                 "---------------------------------------------------------------\n",
                 [](const unsigned char* entry) {
                     char text[4][sizeof "-2147483648"];
                     const Within<client::kSize>::Field<std::uint32_t>* const counters[] = {
                         &client::transmittedFrames, &client::receivedFrames, &client::transmittedBytes,
                         &client::receivedBytes};
                     for (int i = 0; i < 4; ++i)
                         std::snprintf(text[i], sizeof text[i], "%d", static_cast<int>(counters[i]->get(entry)));
                     std::printf("%-20s %-10s %-10s %-10s %s\n", upper_mac(client::mac.get(entry)), text[0], text[1],
                                 text[2], text[3]);
                 });
}

void CliClearWirelessCltStatics(ActionBlock&, int)
{
    if (report(read_record(code::kClearWirelessClients)))
        std::printf("statistics counter of wireless client(s) cleared.\n");
}
