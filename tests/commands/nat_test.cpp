#include <gtest/gtest.h>
#include <vector>

#include "commands/command_session.h"
#include "commands/running_action.h"
#include "service/fields/nat.h"

namespace {
constexpr std::uint32_t kAddDefault = 139, kAddHost = 141, kDeleteHost = 142, kAddRedirect = 143, kDeleteRedirect = 144;

constexpr std::uint32_t lan_host(std::uint32_t last) { return 0xC0A80100 + last; }

std::string nat_row(const char* name, bool enabled)
{
    std::string row(nat_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    nat_entry::interface.set(bytes, name);
    nat_entry::enabled.set(bytes, enabled);
    return row;
}

std::string dmz_row(const char* name, std::uint32_t outside, std::uint32_t host)
{
    std::string row(dmz_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    dmz_entry::name.set(bytes, name);
    dmz_entry::interface.set(bytes, "eth1");
    dmz_entry::natAddress.set(bytes, outside);
    dmz_entry::dmzAddress.set(bytes, host);
    return row;
}

// Two WAN interfaces, a LAN 192.168.1.1/24, and what a test puts into the tables.
class Nat : public CommandSession {
protected:
    Nat()
    {
        nat_record::lanAddress.set(record(code::kReadNat), lan_host(1));
        nat_record::lanNetmask.set(record(code::kReadNat), 0xFFFFFF00);
        set_table(code::kReadNat, nat_row("eth1", true) + nat_row("eth2", false));
    }
    static const ComParam* request(std::uint16_t code)
    {
        for (const ComParam& each : service_stand_in::requests())
            if (record::code.get(each) == code) return &each;
        return nullptr;
    }
    // An add that carries the entry and nothing else.
    static void expect_sent(std::uint16_t code, const std::string& entry)
    {
        ComParam wanted = bare_request(code);
        std::memcpy(carried_entry(wanted), entry.data(), entry.size());
        ASSERT_NE(request(code), nullptr);
        EXPECT_TRUE(same_record(*request(code), wanted));
    }
    static bool something_was_added()
    {
        return sent(code::kAddDmz) + sent(code::kAddNatRedirect) + sent(code::kAddNatTrigger) != 0;
    }
};

TEST_F(Nat, TheDefaultDmzShowsTheHostThatTheInterfaceHas)
{
    RunningAction add(kAddDefault);
    EXPECT_EQ(add.run(), " enter interface name (eth1): ");
    EXPECT_EQ(add.answer("eth0"), " Error: Invalid interface\a\n enter interface name (eth1): ");
    EXPECT_EQ(add.answer("eth2"), " enter DMZ IP address (Unspecified): ");
    EXPECT_TRUE(add.answer("192.168.1.10").starts_with(" The default DMZ has been changed.\n DMZ"));
    std::string entry = dmz_row(dmz_entry::kDefault, 0, lan_host(10));
    dmz_entry::interface.set(reinterpret_cast<unsigned char*>(entry.data()), "eth2");
    expect_sent(code::kAddDmz, entry);

    set_table(code::kReadDmz, dmz_row(dmz_entry::kDefault, 0, lan_host(77)));
    RunningAction again(kAddDefault);
    EXPECT_EQ(again.play({""}), " enter interface name (eth1):  enter DMZ IP address (192.168.1.77): ");
    EXPECT_TRUE(again.answer("").starts_with(" DMZ"));
    EXPECT_EQ(sent(code::kAddDmz), 1u) << "nothing changed";
}

TEST_F(Nat, AHostOfItsOwnAddress)
{
    RunningAction add(kAddHost);
    add.text("cam").play({"eth1", "203.0.113.9", "192.168.1.33"});
    expect_sent(code::kAddDmz, dmz_row("cam", 0xCB007109, lan_host(33)));

    EXPECT_EQ(RunningAction(kDeleteHost).text(dmz_entry::kDefault).run(), " Error: Name not found\a\n");
    EXPECT_EQ(sent(code::kDeleteDmz), 0u);
}

std::string server_row(std::uint8_t protocol, std::uint16_t first, std::uint16_t last, std::uint16_t localFirst,
                       std::uint16_t localLast)
{
    using namespace nat_server_entry;
    std::string row(kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    name.set(bytes, "web");
    interface.set(bytes, "eth1");
    nat_server_entry::protocol.set(bytes, protocol);
    publicFirst.set(bytes, first);
    publicLast.set(bytes, last);
    nat_server_entry::localFirst.set(bytes, localFirst);
    nat_server_entry::localLast.set(bytes, localLast);
    server.set(bytes, lan_host(20));
    return row;
}

struct ServerCase {
    const char* name;
    std::vector<const char*> answers;
    std::string entry;
};
// clang-format off
const ServerCase kServers[] = {
    {"SinglePort",      {"",  "",     "",    "",  "80",                   "",  "",     "192.168.1.20"}, server_row(kNatBoth, 80, 80, 80, 80)},
    {"AnotherPort",     {"s", "eth1", "tcp", "s", "80",                   "s", "8080", "192.168.1.20"}, server_row(kNatTcp, 80, 80, 8080, 8080)},
    {"MovedRange",      {"s", "",     "b",   "r", "100", "90", "110",     "r", "200",  "192.168.1.20"}, server_row(kNatBoth, 100, 110, 200, 210)},
};
// clang-format on
TEST_F(Nat, EveryKindOfServer)
{
    for (const ServerCase& each : kServers) {
        service_stand_in::requests().clear();
        RunningAction add(kAddRedirect);
        add.text("web").run();
        for (const char* text : each.answers) {
            EXPECT_FALSE(something_was_added()) << each.name;
            add.answer(text);
        }
        EXPECT_EQ(add.call.stage, 0u) << each.name;
        SCOPED_TRACE(each.name);
        expect_sent(code::kAddNatRedirect, each.entry);
    }
}

TEST_F(Nat, ATriggerWithUpToThreeRanges)
{
    RunningAction add(kAddRedirect);
    add.text("rtsp").play({"trigger", "tcp", "554", "udp", "6970-6999", "yes", "80", "y"});
    EXPECT_TRUE(add.answer("1-65535").starts_with(" NAT redirection has been added.\n redirect trigger"));
    std::string entry(nat_trigger_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(entry.data());
    nat_trigger_entry::name.set(bytes, "rtsp");
    nat_trigger_entry::protocol.set(bytes, kNatTcp);
    nat_trigger_entry::port.set(bytes, 554);
    nat_trigger_entry::openedProtocol.set(bytes, kNatUdp);
    const std::uint16_t ports[][2] = {{6970, 6999}, {80, 80}, {1, 65535}};
    for (std::size_t i = 0; i < nat_trigger_entry::kMostRanges; ++i) {
        nat_trigger_entry::kOpened[i].first.set(bytes, ports[i][0]);
        nat_trigger_entry::kOpened[i].last.set(bytes, ports[i][1]);
    }
    expect_sent(code::kAddNatTrigger, entry);
}

// An answer that is refused, or none where there is no current value, brings its message and the same question.
struct RefusedCase {
    const char* name;
    std::uint32_t command;
    std::vector<const char*> before;
    const char* answer;
    const char* printed;
};
// clang-format off
const RefusedCase kRefused[] = {
    {"DefaultHostMissing", kAddDefault,  {""},                          "",              " Error: DMZ host must be an IP address in the LAN subnet\a\n enter DMZ IP address (Unspecified): "},
    {"PublicPortTooHigh",  kAddRedirect, {"", "", "", ""},              "65536",         " Error: Invalid Entry: Private Port\a\n enter port number (0, 1-65535): "},
    {"LocalRangeForOne",   kAddRedirect, {"", "", "", "", "80"},        "range",         " Error: Invalid Entry: Port Range\a\n select local port numbers (single, single/range): "},
    {"LocalRangePastEnd",  kAddRedirect, {"", "", "", "r", "1", "9", ""}, "65530",       " Error: Invalid Entry: Port Range\a\n enter starting port number (1, 1-65535): "},
    {"LocalRangeTooLong",  kAddRedirect, {"", "", "", "r", "1", "2000", ""}, "2",        " Error: Invalid Entry: Port Range\a\n enter starting port number (1, 1-65535): "},
    {"ServerBroadcast",    kAddRedirect, {"", "", "", "", "80", "", ""}, "192.168.1.255", " Error: Local server must be an IP address in the LAN subnet\a\n enter local server IP address (Unspecified): "},
    {"OpenedBackwards",    kAddRedirect, {"t", "", "1", ""},            "9-8",           " Error: Ending port should not be below the starting port\a\n enter opened port range (Unspecified, port or first-last, up to 3 ranges): "},
};
// clang-format on
TEST_F(Nat, ARefusedAnswerBringsTheQuestionAgain)
{
    for (const RefusedCase& each : kRefused) {
        RunningAction add(each.command);
        if (each.command != kAddDefault) add.text("web");
        add.run();
        for (const char* text : each.before) add.answer(text);
        EXPECT_EQ(add.answer(each.answer), each.printed) << each.name;
        EXPECT_NE(add.call.stage, 0u) << each.name;
    }
    EXPECT_FALSE(something_was_added());
}

TEST_F(Nat, ARedirectionIsDeletedFromTheTableThatHasIt)
{
    EXPECT_EQ(RunningAction(kDeleteRedirect).text("web").run(), " NAT redirection has been deleted.\n");
    EXPECT_EQ(codes(), (std::vector<std::uint16_t>{code::kDeleteNatRedirect}));
    refused[code::kDeleteNatRedirect] = kStatusUnknownName;
    refused[code::kDeleteNatTrigger] = kStatusUnknownName;
    EXPECT_EQ(RunningAction(kDeleteRedirect).text("none").run(), "\aThere is no NAT entry of that name\n");
    refused[code::kDeleteNatRedirect] = kStatusStorageFull;
    RunningAction(kDeleteRedirect).text("web").run();
    EXPECT_EQ(codes().back(), code::kDeleteNatRedirect) << "a failure is not looked for in the other table";
}
}  // namespace
