#include "commands/command_session.h"
#include "service/fields/interfaces.h"
#include "service/fields/ports.h"
#include "service/fields/system.h"

namespace {
constexpr std::uint32_t kShowPort = 86, kClientTable = 109, kShowSyslan = 131, kClearSyslan = 132;

std::string port_entry(std::uint8_t type, const char* name, const char* port, std::uint32_t flags = 0)
{
    return row_of<interface_entry::kSize>(interface_entry::type, type, interface_entry::flags, flags,
                                          interface_entry::name, name, interface_entry::port, port);
}

using PortCommands = CommandSession;

TEST_F(PortCommands, ShowPortListsAllButBridges)
{
    constexpr unsigned char kLanMac[] = {2, 0, 0x5E, 0x10, 0, 0xAB}, kWlanMac[] = {2, 0, 0x5E, 0x10, 0, 0x10};
    fill(record(code::kReadSystem), system_record::links, system_record::kLanUp, system_record::lanMac, kLanMac,
         system_record::wirelessMac, kWlanMac);
    set_table(code::kReadPort, port_entry(interface_entry::kEthernet, "eth1", "wan") +
                                   port_entry(interface_entry::kBridge, "br0", "bridge") +
                                   port_entry(interface_entry::kEthernet, "eth0", "lan") +
                                   port_entry(interface_entry::kWireless, "wlan0", "wlan") + "cut short");
    EXPECT_EQ(RunningAction(kShowPort).run(), "Port Name   MAC address        Description     State\n"
                                              "----------------------------------------------------\n"
                                              "wan         n/a                wan             n/a  \n"
                                              "lan         02-00-5e-10-00-ab  lan             Up   \n"
                                              "wlan        02-00-5e-10-00-10  wlan            Down \n");
    EXPECT_EQ(codes(), (Codes{code::kReadPort, code::kReadSystem}));
}

TEST_F(PortCommands, TheLastInterfaceWithTheFlagIsShownOrCleared)
{
    set_table(code::kReadPort, port_entry(interface_entry::kEthernet, "eth0", "lan", interface_entry::kSystemLan) +
                                   port_entry(interface_entry::kEthernet, "eth1", "wan", interface_entry::kWan) +
                                   port_entry(interface_entry::kBridge, "br0", "lan", interface_entry::kSystemLan));
    RunningAction(kShowSyslan).run();
    EXPECT_STREQ(port_statistics_record::interface.get(last_request()), "br0");
    EXPECT_EQ(codes(), (Codes{code::kReadPort, code::kReadPortStatistics}));
    refused[code::kClearPortStatistics] = 15;
    EXPECT_EQ(RunningAction(kClearSyslan).run(), " error occurs: 15\n\n");
}

TEST_F(PortCommands, WirelessClients)
{
    std::string table;
    for (std::uint8_t state = 1; state <= 6; ++state) {
        const unsigned char mac[] = {2, 0, 0x5E, 0x20, 0xAB, state};
        table +=
            row_of<wireless_client_entry::kSize>(wireless_client_entry::mac, mac, wireless_client_entry::state, state);
    }
    set_table(code::kReadWirelessClients, table + "cut short");
    EXPECT_EQ(RunningAction(kClientTable).run(), "MAC Address          State\n----------------------------------\n"
                                                 "02-00-5E-20-AB-01    Authenticated\n"
                                                 "02-00-5E-20-AB-02    Associated\n"
                                                 "02-00-5E-20-AB-03    Authorized\n"
                                                 "02-00-5E-20-AB-04    Deny by ACL\n"
                                                 "02-00-5E-20-AB-05    Unauthorized\n"
                                                 "02-00-5E-20-AB-06    Unauthorized\n");
}
}  // namespace
