// The list of interfaces.
#include "commands/command_session.h"
#include "commands/handlers.h"
#include "commands/interface_table.h"

namespace {
using Interfaces = CommandSession;

TEST_F(Interfaces, AreListedAsTheServiceHasThem)
{
    std::string table = interface_row("eth0", interface_entry::kEthernet, "lan");
    table += interface_row("wlan0", interface_entry::kWireless, "wlan", 2);  // neither up nor 0
    table += interface_row("tun0", 8);                                       // a type without a name
    table += interface_row("fifteen-letters", interface_entry::kBonding);
    table.resize(table.size() + 95);  // an entry that is not whole
    set_table(code::kReadPort, table);
    EXPECT_EQ(run(CliShowIf), " name  state  type                port    MTU   H/W address        bridge\n"
                              " eth0  up     ethernet            lan     1500  02-00-5e-10-00-ab  -\n"
                              " wlan0 down   ethernet(wireless)  wlan    1500  02-00-5e-10-00-ab  -\n"
                              " tun0  up     ethernet(wireless)          1500  02-00-5e-10-00-ab  -\n"
                              " fifteen-letters up     bonding                     1500  02-00-5e-10-00-ab  -\n");
    EXPECT_TRUE(was_sent(request_of(code::kReadPort)));
}

}  // namespace
