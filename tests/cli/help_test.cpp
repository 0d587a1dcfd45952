#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "cli/help.h"
#include "cli/help_topic.h"
#include "cli/started_session.h"
#include "support/written.h"

namespace {
struct Case {
    const char* name;
    const char* typed;
    bool listed;
    const char* screen;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

// clang-format off
constexpr Case kCases[] = {
    {"FirstWords", "", true,
     "\nadd            change         clear          delete         disable        "
     "\nenable         help           logout         ping           reset          "
     "\nsave           set            show           "},
    {"AfterShow", "show ", true,
     "\narp            community      dhcp           http           interface      "
     "\nip             log            mac            nat            ntp            "
     "\nping           radius         rip            snmp           syslogd        "
     "\nsystem         telnet         trap           upnp           "},
    {"TheEndIsNotListed",   "show system ", true,  "\nip             "},
    {"NothingButTheEnd",    "show telnet ", true,  "\n"},
    {"OnlyAParameter",      "set prompt ",  true,  "\n<string up to 15 characters>  "},
    {"KeywordAndParameter", "show mac filter ", true, "\nmode           <string up to 30 characters>  "},
    {"WideParameter",       "set ip filter eth0 ", true, "\n<IP filter default action , grant/deny/disable >            "},
    {"RoomForBoth",         "show interface ", true,
     "\nstatistics     <interface name, string up to 15 characters> "},
    {"Beginnings",          "s",            true,  "\nsave           set            show           "},
    {"BeginningsAnyCase",   "show SYS",     true,  "\nsyslogd        system         "},
    {"EngineeringIfBegun",  "z",            true,  "\nz_debug        z_shell        "},
    {"NoSuchBeginning",     "xyz",          false, "\n"},
    {"BegunParameter",      "set prompt a", false, "\n"},
};
// clang-format on

class Help : public testing::TestWithParam<Case> {};
TEST_P(Help, ListsWhatMayCome)
{
    const Case& c = GetParam();
    StartedSession session;
    session.type_smart(c.typed);
    bool listed = false;
    EXPECT_EQ(written_by([&] { listed = help(session.edit, 0); }), c.screen);
    EXPECT_EQ(listed, c.listed);
}
INSTANTIATE_TEST_SUITE_P(Lines, Help, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(HelpOnWideItems, GoesOnOnANewLine)
{
    using enum Token;
    StartedSession session;
    session.replace_commands({{kwSet, kwAdd},
                              {kwSet, kwAll},
                              {kwSet, kwAp},
                              {kwSet, kwArp},
                              {kwSet, pmIPAddress},
                              {kwSet, pmInterfaceNameOrAll},
                              {kwSet, pmNatMdmzName}});
    session.type_smart("set ");
    EXPECT_EQ(written_by([&] { help(session.edit, 0); }),
              "\nadd            all            ap             arp            <IP address>   "
              "\n<interface name/all, string up to 15 characters/all:for all interfaces>    "
              "\n<nat multi dmz name , string up to 30 characters >          ");
}

const std::string kQuestion = " please enter a selection number [1..8] for more detail information: ";
const std::string kCategories = "Commands are categorized as follows:\n"
                                "\n   (1) System             (2) IP                 (3) Filtering         "
                                "\n   (4) DHCP Server        (5) SNMP               (6) Diagnostics       "
                                "\n   (7) Security           (8) Statistics        \n" +
                                kQuestion;
const std::string kAnyKey = " Press any key to continue...\n";

class HelpTopic : public testing::Test, public StartedSession {
protected:
    // Enters the command, then an answer to its question or any key for the next page.
    std::string enter() { return call(""); }
    std::string call(std::string answer)
    {
        slot.call.parms.value[0] = reinterpret_cast<Word>(answer.data());
        return written_by([this] { help_topic(slot.call, 0); });
    }
    std::uint32_t stage() const { return slot.call.stage; }
};

std::ptrdiff_t lines(const std::string& text) { return std::ranges::count(text, '\n'); }

TEST_F(HelpTopic, ListsCategoriesUntilAnEmptyAnswer)
{
    EXPECT_EQ(enter(), kCategories);
    EXPECT_EQ(stage(), 2u);
    EXPECT_EQ(call("?"), kCategories);
    EXPECT_EQ(stage(), 2u);
    EXPECT_EQ(call(""), "");
    EXPECT_EQ(stage(), 0u);
}

TEST_F(HelpTopic, RefusesWhatIsNoSelection)
{
    enter();
    for (const char* answer : {"0", "9", "-1", "1x", "x", " 1", "??", "99999999999"}) {
        EXPECT_EQ(call(answer), " Error: Associated help information is not available\a\n" + kQuestion) << answer;
        EXPECT_EQ(stage(), 2u) << answer;
    }
}

TEST_F(HelpTopic, ListsTheCommandsOfACategory)
{
    enter();
    EXPECT_EQ(call("3"), "\n"
                         "    add mac filter <string up to 30 characters> <MAC address, XX-XX-XX-XX-XX-XX>\n"
                         "    delete mac filter <string up to 30 characters>\n"
                         "    set mac filter mode <MAC filter mode, disabled/grant/deny>\n"
                         "    show mac filter\n"
                         "    show mac filter mode\n"
                         "    show mac filter <string up to 30 characters>\n" +
                             kQuestion);
    EXPECT_EQ(stage(), 2u);
    EXPECT_EQ(call("8"), "\n    show snmp statistics\n" + kQuestion);
}

TEST_F(HelpTopic, PausesAfterEveryScreenful)
{
    const auto total = std::ranges::count_if(gCliCmdTable, [](const CliCmdRow& row) { return row.category & 1; });
    ASSERT_GT(total, 22);
    ASSERT_LT(total, 44);

    enter();
    const std::string first = call("1");
    EXPECT_EQ(first.substr(0, 18), "\n    clear config\n");
    EXPECT_TRUE(first.ends_with(kAnyKey));
    EXPECT_EQ(lines(first), 1 + 22 + 1);
    EXPECT_EQ(stage(), 1u);

    const std::string second = call("x");
    EXPECT_TRUE(second.ends_with("    show upnp\n" + kQuestion));
    EXPECT_EQ(lines(second), total - 22);
    EXPECT_EQ(stage(), 2u);
}

TEST_F(HelpTopic, EndsAtAStageThatItNeverSets)
{
    slot.call.stage = 99;
    EXPECT_EQ(enter(), " Error: CLI error!\a\n");
    EXPECT_EQ(stage(), 0u);
}
}  // namespace
