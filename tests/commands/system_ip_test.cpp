#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/address.h"
#include "service/fields/routes.h"
#include "service/fields/system.h"

namespace {
using namespace address_record;

constexpr std::uint32_t kOwn = 0xC0A80101, kMask = 0xFFFFFF00, kRouter = 0xC0A801FE;  // 192.168.1.1/24, .254
constexpr char kAskModeYes[] = " obtain IP address automatically (yes, yes/no): ";
constexpr char kShown[] = "        IP address :                192.168.1.1\n"
                          "        IP netmask:                 255.255.255.0\n"
                          "        Default gateway IP address: 10.0.0.1\n"
                          "        DNS IP address:             ";  // and a name server of the machine

class SystemIp : public CommandSession {
protected:
    SystemIp()
    {
        fill(lan(), interface, "lan", mode, kStatic, address, kOwn, netmask, kMask, gateway, kRouter);
        fill(record(code::kReadSystem), system_record::lanAddress, kOwn, system_record::lanNetmask, kMask);
        set_table(code::kReadRoutes, route(0xC0A80100, kMask, 0) + route(0, 0, 0x0A000001) + route(0, 0, 0x0A000002));
    }
    static std::string route(std::uint32_t destination, std::uint32_t mask, std::uint32_t router)
    {
        return row_of<route_entry::kSize>(route_entry::destination, destination, route_entry::netmask, mask,
                                          route_entry::gateway, router);
    }
    ComParam& lan() { return record(code::kReadAddress); }
};

TEST_F(SystemIp, AutomaticAsksNothingMoreAndIsAlwaysWritten)
{
    run(CliSetSystemIP);
    EXPECT_TRUE(answer("YES").starts_with(kShown));
    EXPECT_EQ(mode.get(lan()), kAutomatic);
    EXPECT_EQ(run(CliSetSystemIP), kAskModeYes);
    answer("");
    EXPECT_EQ(sent(code::kWriteAddress), 2u);
}

TEST_F(SystemIp, AnUnknownModeGoesOnAsIfFixed)
{
    fill(lan(), mode, 0, address, 0);
    EXPECT_EQ(run(CliSetSystemIP), kAskModeYes);
    EXPECT_EQ(answer(""), " IP address (Unspecified): ");
}

TEST_F(SystemIp, AStaticAddressThatCannotBeIsNotWritten)
{
    for (const auto& [own, printed] :
         {std::pair{"192.168.1.255", "IP Address can not be the same as Broadcast address "},
          {"192.168.2.255", "IP address and Default gateway must be in the same subnet."}}) {
        run(CliSetSystemIP);
        EXPECT_EQ(answers({"", own, "", "", ""}), refusal(printed));
        EXPECT_FALSE(asking()) << own;
    }
    EXPECT_EQ(sent(code::kWriteAddress), 0u);
}
}  // namespace
