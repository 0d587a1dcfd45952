#include "commands/command_session.h"
#include "service/fields/nat.h"

namespace {
constexpr std::uint32_t kAddDefault = 139, kAddRedirect = 143, kDeleteRedirect = 144;

constexpr std::uint32_t lan_host(std::uint32_t last) { return 0xC0A80100 + last; }

std::string nat_row(const char* name, bool enabled)
{
    return row_of<nat_entry::kSize>(nat_entry::interface, name, nat_entry::enabled, enabled);
}
std::string dmz_row(const char* name, const char* interface, std::uint32_t outside, std::uint32_t host)
{
    using namespace dmz_entry;
    return row_of<kSize>(dmz_entry::name, name, dmz_entry::interface, interface, natAddress, outside, dmzAddress, host);
}
std::string server_row(std::uint8_t kind, std::uint16_t first, std::uint16_t last, std::uint16_t inside,
                       std::uint16_t insideLast)
{
    using namespace nat_server_entry;
    return row_of<kSize>(name, "web", interface, "eth1", protocol, kind, publicFirst, first, publicLast, last,
                         localFirst, inside, localLast, insideLast, server, lan_host(20));
}

// Two WAN interfaces, a LAN 192.168.1.1/24, and what a test puts into the tables.
class Nat : public CommandSession {
protected:
    Nat()
    {
        fill(record(code::kReadNat), nat_record::lanAddress, lan_host(1), nat_record::lanNetmask, 0xFFFFFF00);
        set_table(code::kReadNat, nat_row("eth1", true) + nat_row("eth2", false));
    }
    static std::size_t added()
    {
        return sent(code::kAddDmz) + sent(code::kAddNatRedirect) + sent(code::kAddNatTrigger);
    }
};

TEST_F(Nat, TheDefaultDmzShowsTheHostThatTheInterfaceHas)
{
    RunningAction add(kAddDefault);
    EXPECT_EQ(add.run(), " enter interface name (eth1): ");
    EXPECT_EQ(add.answer("eth0"), refusal("Invalid interface", " enter interface name (eth1): "));
    EXPECT_EQ(add.answer("eth2"), " enter DMZ IP address (Unspecified): ");
    EXPECT_TRUE(add.answer("192.168.1.10").starts_with(" The default DMZ has been changed.\n DMZ"));
    EXPECT_TRUE(was_sent(carrying(code::kAddDmz, dmz_row(dmz_entry::kDefault, "eth2", 0, lan_host(10)))));

    set_table(code::kReadDmz, dmz_row(dmz_entry::kDefault, "eth1", 0, lan_host(77)));
    RunningAction again(kAddDefault);
    EXPECT_EQ(again.play({""}), " enter interface name (eth1):  enter DMZ IP address (192.168.1.77): ");
    EXPECT_TRUE(again.answer("").starts_with(" DMZ"));
    EXPECT_EQ(sent(code::kAddDmz), 1u) << "nothing changed";
}

struct ServerCase {
    const char* name;
    std::vector<const char*> answers;
    std::string entry;
};
// clang-format off
const ServerCase kServers[] = {
    {"SinglePort",  {"",  "",     "",    "",  "80",               "",  "",     "192.168.1.20"}, server_row(kNatBoth, 80, 80, 80, 80)},
    {"AnotherPort", {"s", "eth1", "tcp", "s", "80",               "s", "8080", "192.168.1.20"}, server_row(kNatTcp, 80, 80, 8080, 8080)},
    {"MovedRange",  {"s", "",     "b",   "r", "100", "90", "110", "r", "200",  "192.168.1.20"}, server_row(kNatBoth, 100, 110, 200, 210)},
};
// clang-format on
TEST_F(Nat, EveryKindOfServer)
{
    for (const ServerCase& each : kServers) {
        const std::size_t before = added();
        RunningAction add(kAddRedirect);
        add.text("web").run();
        for (const char* text : each.answers) {
            EXPECT_EQ(added(), before) << each.name;
            add.answer(text);
        }
        EXPECT_EQ(add.call.stage, 0u) << each.name;
        EXPECT_TRUE(was_sent(carrying(code::kAddNatRedirect, each.entry))) << each.name;
    }
}

// An answer that is refused, or none where there is no current value, brings its message and the same question.
struct RefusedCase {
    const char* name;
    std::uint32_t command;
    std::vector<const char*> before;
    const char* answer;
    std::string printed;
};
// clang-format off
const RefusedCase kRefused[] = {
    {"DefaultHostMissing", kAddDefault,  {""},                               "",              refusal("DMZ host must be an IP address in the LAN subnet", " enter DMZ IP address (Unspecified): ")},
    {"PublicPortTooHigh",  kAddRedirect, {"", "", "", ""},                   "65536",         refusal("Invalid Entry: Private Port", " enter port number (0, 1-65535): ")},
    {"LocalRangeForOne",   kAddRedirect, {"", "", "", "", "80"},             "range",         refusal("Invalid Entry: Port Range", " select local port numbers (single, single/range): ")},
    {"LocalRangePastEnd",  kAddRedirect, {"", "", "", "r", "1", "9", ""},    "65530",         refusal("Invalid Entry: Port Range", " enter starting port number (1, 1-65535): ")},
    {"LocalRangeTooLong",  kAddRedirect, {"", "", "", "r", "1", "2000", ""}, "2",             refusal("Invalid Entry: Port Range", " enter starting port number (1, 1-65535): ")},
    {"ServerBroadcast",    kAddRedirect, {"", "", "", "", "80", "", ""},     "192.168.1.255", refusal("Local server must be an IP address in the LAN subnet", " enter local server IP address (Unspecified): ")},
    {"OpenedBackwards",    kAddRedirect, {"t", "", "1", ""},                 "9-8",           refusal("Ending port should not be below the starting port", " enter opened port range (Unspecified, port or first-last, up to 3 ranges): ")},
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
    EXPECT_EQ(added(), 0u);
}

TEST_F(Nat, ARedirectionIsDeletedFromTheTableThatHasIt)
{
    EXPECT_EQ(RunningAction(kDeleteRedirect).text("web").run(), " NAT redirection has been deleted.\n");
    EXPECT_EQ(codes(), Codes{code::kDeleteNatRedirect});
    refused = {{code::kDeleteNatRedirect, kStatusUnknownName}, {code::kDeleteNatTrigger, kStatusUnknownName}};
    EXPECT_EQ(RunningAction(kDeleteRedirect).text("none").run(), "\aThere is no NAT entry of that name\n");
    refused[code::kDeleteNatRedirect] = kStatusStorageFull;
    RunningAction(kDeleteRedirect).text("web").run();
    EXPECT_EQ(codes().back(), code::kDeleteNatRedirect) << "a failure is not looked for in the other table";
}
}  // namespace
