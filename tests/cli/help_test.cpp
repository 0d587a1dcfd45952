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
    {"TheEndIsNotListed",   "show system ", true,  "\nip             "},
    {"NothingButTheEnd",    "show telnet ", true,  "\n"},
    {"OnlyAParameter",      "set prompt ",  true,  "\n<string up to 15 characters>  "},
    {"WideParameter",       "set ip filter eth0 ", true, "\n<IP filter default action , grant/deny/disable >            "},
    {"BeginningsAnyCase",   "show SYS",     true,  "\nsyslogd        system         "},
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

const std::string kQuestion = " please enter a selection number [1..8] for more detail information: ";
const std::string kCategories = "Commands are categorized as follows:\n"
                                "\n   (1) System             (2) IP                 (3) Filtering         "
                                "\n   (4) DHCP Server        (5) SNMP               (6) Diagnostics       "
                                "\n   (7) Security           (8) Statistics        \n" +
                                kQuestion;

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

TEST_F(HelpTopic, RefusesWhatIsNoSelection)
{
    enter();
    for (const char* answer : {"0", "9", "-1", "1x", "x", " 1", "??", "99999999999"}) {
        EXPECT_EQ(call(answer), " Error: Associated help information is not available\a\n" + kQuestion) << answer;
        EXPECT_EQ(stage(), 2u) << answer;
    }
}
}  // namespace
