#include "commands/command_session.h"
#include "service/fields/interfaces.h"
#include "service/fields/ports.h"

namespace {
constexpr std::uint32_t kShowSyslan = 131, kClearSyslan = 132;

std::string port_entry(std::uint8_t type, const char* name, const char* port, std::uint32_t flags = 0)
{
    return row_of<interface_entry::kSize>(interface_entry::type, type, interface_entry::flags, flags,
                                          interface_entry::name, name, interface_entry::port, port);
}

using PortCommands = CommandSession;

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

}  // namespace
