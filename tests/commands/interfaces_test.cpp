// The list of interfaces and their RIP modes.
#include "commands/command_session.h"
#include "commands/handlers.h"
#include "commands/interface_table.h"
#include "commands/rip.h"
#include "service/fields/rip.h"

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

class Rip : public CommandSession {
protected:
    Rip()
    {
        set_table(code::kReadRip, row("eth0", 4) + row("eth1", 3) + row("wlan0", 16));
        set_table(code::kReadInterfaces, interface_row("eth0") + interface_row("eth1") + interface_row("wlan0"));
        interface_record::count.set(record(code::kReadInterfaces), 3);
    }
    static std::string row(const char* interface, std::uint32_t mode)
    {
        return row_of<rip_entry::kSize>(rip_entry::interface, interface, rip_entry::mode, mode);
    }
    static std::string modes_sent()
    {
        std::string all;
        for (ComParam& each : service_stand_in::requests())
            if (record::code.get(each) == code::kWriteRip)
                all += rip_record::interface.get(each) + (" " + std::to_string(rip_record::mode.get(each))) + ",";
        return all;
    }
};

TEST_F(Rip, IsSetForOneInterfaceOrForEveryOneUntilOneIsRefused)
{
    // A mode without a name shows the one above it.
    constexpr char kAll[] = "name      RIP state\n----------------------\n"
                            "eth0      Active ver.2\neth1      Active ver.2\nwlan0     Disabled\n";
    for (const Action command :
         {CliEnableRip1Active, CliEnableRip1Passive, CliEnableRip2Active, CliEnableRip2Passive, CliDisableRip})
        EXPECT_EQ(run(command, {text("eth1")}), kAll);
    EXPECT_EQ(modes_sent(), "eth1 1,eth1 2,eth1 4,eth1 8,eth1 16,");

    service_stand_in::requests().clear();
    EXPECT_EQ(run(CliEnableRip2Passive), kAll);
    EXPECT_EQ(modes_sent(), "eth0 8,eth1 8,wlan0 8,");
    refused[code::kWriteRip] = kStatusTableFull;
    EXPECT_EQ(run(CliEnableRip2Passive), "\aThe table is full\n");
    EXPECT_EQ(sent(code::kWriteRip), 4u);
    interface_record::count.set(record(code::kReadInterfaces), 0);
    EXPECT_EQ(run(CliEnableRip1Active), " error while getting visible interface number\n");
}
}  // namespace
