#include "commands/command_session.h"
#include "commands/handlers.h"
#include "platform/ipc_client.h"
#include "service/fields/address.h"
#include "service/fields/routes.h"
#include "service/fields/system.h"

namespace {
using namespace address_record;

constexpr std::uint32_t kOwn = 0xC0A80101, kMask = 0xFFFFFF00, kRouter = 0xC0A801FE;  // 192.168.1.1/24, .254
constexpr char kAskModeNo[] = " obtain IP address automatically (no, yes/no): ";
constexpr char kAskModeYes[] = " obtain IP address automatically (yes, yes/no): ";
constexpr char kAskAddress[] = " IP address (192.168.1.1): ";
constexpr char kAskNetmask[] = " IP subnet mask (255.255.255.0): ";
constexpr char kAskGateway[] = " gateway IP address (192.168.1.254): ";
constexpr char kAskDns[] = " primary DNS IP address (0.0.0.0): ";
constexpr char kShown[] = "        IP address :                192.168.1.1\n"
                          "        IP netmask:                 255.255.255.0\n"
                          "        Default gateway IP address: 10.0.0.1\n"
                          "        DNS IP address:             ";

class SystemIp : public CommandSession {
protected:
    SystemIp()
    {
        interface.set(lan(), "lan");
        mode.set(lan(), kStatic);
        address.set(lan(), kOwn);
        netmask.set(lan(), kMask);
        gateway.set(lan(), kRouter);
        system_record::lanAddress.set(record(code::kReadSystem), kOwn);
        system_record::lanNetmask.set(record(code::kReadSystem), kMask);
        set_table(code::kReadRoutes, route(0xC0A80100, kMask, 0) + route(0, 0, 0x0A000001) + route(0, 0, 0x0A000002));
    }

    static std::string route(std::uint32_t destination, std::uint32_t mask, std::uint32_t router)
    {
        std::string entry(route_entry::kSize, '\0');
        auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
        route_entry::destination.set(bytes, destination);
        route_entry::netmask.set(bytes, mask);
        route_entry::gateway.set(bytes, router);
        return entry;
    }
    ComParam& lan() { return record(code::kReadAddress); }
    ComParam written(std::uint16_t code) const
    {
        for (const ComParam& each : service_stand_in::requests())
            if (record::code.get(each) == code) return each;
        return {};
    }
    // The name server's line depends on the machine.
    static std::string without_dns(const std::string& shown)
    {
        constexpr char kLabel[] = "DNS IP address:             ";
        const std::size_t at = shown.find(kLabel);
        return at == shown.npos ? shown : shown.substr(0, at + sizeof kLabel - 1);
    }
};

TEST_F(SystemIp, EnterThroughoutWritesNothing)
{
    EXPECT_EQ(run(CliSetSystemIP), kAskModeNo);
    EXPECT_EQ(answer(""), kAskAddress);
    EXPECT_EQ(answer(""), kAskNetmask);
    EXPECT_EQ(answer(""), kAskGateway);
    EXPECT_EQ(answer(""), kAskDns);
    EXPECT_EQ(without_dns(answer("")), kShown);
    EXPECT_FALSE(asking());
    EXPECT_EQ(sent(code::kWriteAddress), 0u);
    ComParam wanted = bare_request(code::kReadAddress);
    std::memcpy(wanted.bytes + 24, "lan", 3);
    EXPECT_TRUE(same_record(service_stand_in::requests()[0], wanted));
}

TEST_F(SystemIp, EveryAnswerReachesItsField)
{
    ComParam wanted = lan();
    address.set(wanted, 0x0A000002);
    netmask.set(wanted, 0xFFFF0000);
    gateway.set(wanted, 0x0A000001);
    primaryDns.set(wanted, 0x08080808);
    record::kind.set(wanted, record::kRequest);
    record::code.set(wanted, code::kWriteAddress);
    run(CliSetSystemIP);
    EXPECT_EQ(without_dns(answers({"no", "10.0.0.2", "255.255.0.0", "10.0.0.1", "8.8.8.8"})), kShown);
    EXPECT_TRUE(same_record(written(code::kWriteAddress), wanted));
}

TEST_F(SystemIp, AutomaticAsksNothingMoreAndIsAlwaysWritten)
{
    run(CliSetSystemIP);
    EXPECT_EQ(without_dns(answer("YES")), kShown);
    EXPECT_EQ(mode.get(lan()), kAutomatic);
    EXPECT_EQ(run(CliSetSystemIP), kAskModeYes);
    answer("");
    EXPECT_EQ(sent(code::kWriteAddress), 2u);
}

TEST_F(SystemIp, AnUnknownModeGoesOnAsIfFixed)
{
    mode.set(lan(), 0);
    address.set(lan(), 0);
    EXPECT_EQ(run(CliSetSystemIP), kAskModeYes);
    EXPECT_EQ(answer(""), " IP address (Unspecified): ");
}

struct Refused {
    const char* name;
    std::vector<const char*> answers;
    const char* printed;
};
const Refused kRefused[] = {
    {"Broadcast",
     {"", "192.168.1.255", "", "", ""},
     " Error: IP Address can not be the same as Broadcast address \a\n"},
    {"GatewayElsewhereBeforeBroadcast",
     {"", "192.168.2.255", "", "", ""},
     " Error: IP address and Default gateway must be in the same subnet.\a\n"},
};
TEST_F(SystemIp, AStaticAddressThatCannotBeIsNotWritten)
{
    for (const Refused& each : kRefused) {
        run(CliSetSystemIP);
        std::string printed;
        for (const char* text : each.answers) printed = answer(text);
        EXPECT_EQ(printed, each.printed) << each.name;
        EXPECT_FALSE(asking()) << each.name;
    }
    EXPECT_EQ(sent(code::kWriteAddress), 0u);
}
}  // namespace
