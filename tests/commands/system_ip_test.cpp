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

TEST_F(SystemIp, IsShownWithTheFirstDefaultRoute)
{
    EXPECT_EQ(without_dns(run(CliShowSystemIp)), kShown);
    EXPECT_EQ(codes(), (std::vector<std::uint16_t>{code::kReadSystem, code::kReadRoutes}));
}

TEST_F(SystemIp, WhatIsMissingIsSaidWithoutABell)
{
    refused[code::kReadSystem] = kStatusUnknownName;
    set_table(code::kReadRoutes, "");
    const std::string shown = run(CliShowSystemIp);
    EXPECT_EQ(without_dns(shown), "        IP address :                N/A\n"
                                  "        IP netmask:                 N/A\n"
                                  "        Default gateway IP address: N/A\n"
                                  "        DNS IP address:             ");
    EXPECT_TRUE(shown.ends_with("\nThere is no entry of that name\n")) << shown;
    EXPECT_EQ(shown.find('\a'), shown.npos);

    exchangeFails[code::kReadRoutes] = IPC_NOT_RUNNING;
    EXPECT_TRUE(run(CliShowSystemIp).ends_with("\nThe configuration service is not running\n"));
}

TEST_F(SystemIp, EnterThroughoutWritesNothing)
{
    EXPECT_EQ(run(CliSetSystemIP), kAskModeNo);
    EXPECT_EQ(stage(), 128u);
    EXPECT_EQ(answer(""), kAskAddress);
    EXPECT_EQ(stage(), 129u);
    EXPECT_EQ(answer(""), kAskNetmask);
    EXPECT_EQ(answer(""), kAskGateway);
    EXPECT_EQ(stage(), 131u);
    EXPECT_EQ(answer(""), kAskDns);
    EXPECT_EQ(without_dns(answer("")), kShown);
    EXPECT_FALSE(asking());
    EXPECT_EQ(sent(code::kWriteAddress), 0u);
    EXPECT_EQ(record::code.get(service_stand_in::requests()[0]), code::kReadAddress);
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
    run(CliSetSystemIP);
    EXPECT_EQ(answer("n"), kAskAddress);
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
    {"GatewayElsewhere",
     {"", "192.168.2.1", "", "", ""},
     " Error: IP address and Default gateway must be in the same subnet.\a\n"},
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

TEST_F(SystemIp, RefusedAnswersBringTheQuestionBack)
{
    run(CliSetSystemIP);
    EXPECT_EQ(answer("si"), std::string(" Error: Action confirm word must be \"yes\" or \"no\"\a\n") + kAskModeNo);
    EXPECT_EQ(answers({"", "192.168.1.256"}), std::string(" Error: Invalid IP address\a\n") + kAskAddress);
    EXPECT_EQ(answers({"", "0xffffff00"}), std::string(" Error: Invalid IP address\a\n") + kAskNetmask);
    EXPECT_EQ(stage(), 130u);
}

TEST_F(SystemIp, FailuresAreSaidWithoutABell)
{
    refused[code::kReadAddress] = kStatusUnknownName;
    EXPECT_EQ(run(CliSetSystemIP), "There is no entry of that name\n");
    EXPECT_FALSE(asking());
    refused = {{code::kWriteAddress, kStatusAddressOutOfRange}};
    run(CliSetSystemIP);
    EXPECT_EQ(answers({"", "192.168.1.9", "", "", ""}),
              "The IP address or gateway is not a host address of its network\n");
    refused[code::kWriteAddress] = kStatusValueRefused;
    run(CliSetSystemIP);
    EXPECT_EQ(answers({"", "192.168.1.9", "255.0.255.0", "", ""}),
              "The subnet mask or DNS address is not acceptable\n");
    EXPECT_EQ(address.get(lan()), kOwn);
}
}  // namespace
