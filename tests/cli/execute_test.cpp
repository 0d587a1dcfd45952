#include <gtest/gtest.h>
#include <vector>

#include "cli/execute.h"
#include "support/typing_session.h"

namespace {
constexpr std::uint32_t kShowSystem = 100, kSetSystemName = 70;

struct Case {
    const char* name;
    std::uint32_t editMode;
    const char* keys;  // the last of them Enter
    std::string output;
    std::uint32_t ran;  // command, 0: none
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

const std::string kIncomplete = "\n Error: Incomplete command, use \"?\" to get help\a\nCommand> ";

// clang-format off
const Case kCases[] = {
    {"RefusedLineCanBeFinished", kSmartEdit,  "show<enter> system<enter>",
                                              "show" + kIncomplete + "show system\nran\nCommand> ", kShowSystem},
    {"RefusedLineIsLostInNormalMode", kNormalEdit, "show<enter>sh<enter>", "show" + kIncomplete + "sh" + kIncomplete, 0},
    {"ExtraWordInSmartMode",     kSmartEdit,  "save config now<enter>",
        "save config now\n Error: \"now\" and following input is/are extra in this command.\a\nCommand> save config now", 0},
};
// clang-format on

class Execute : public testing::TestWithParam<Case> {};
TEST_P(Execute, RunsTheCommandOrSaysWhyNot)
{
    std::uint32_t ran = 0;
    TypingSession session(GetParam().editMode);
    session.action = [&ran](ActionBlock& call) {
        ran = call.cmdId;
        std::printf("ran\n");
    };
    EXPECT_EQ(session.type(GetParam().keys), GetParam().output);
    EXPECT_EQ(ran, GetParam().ran);
}
INSTANTIATE_TEST_SUITE_P(Lines, Execute, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(ExecuteParameters, QuotedTextRefusedOnceArrivesWhole)
{
    for (const std::uint32_t mode : {kSmartEdit, kNormalEdit}) {
        TypingSession session(mode);
        std::string name;
        session.action = [&name](ActionBlock& call) {
            EXPECT_EQ(call.cmdId, kSetSystemName);
            ASSERT_EQ(call.parms.count, 1u);
            name = reinterpret_cast<const char*>(call.parms.value[0]);
        };
        if (mode == kSmartEdit) {
            session.type("set system name \"lab<enter>");
            EXPECT_EQ(session.type(" ap\"<enter>"), " ap\"\nCommand> ");
        } else {
            session.type("set system name \"lab ap\"<enter>");
        }
        EXPECT_EQ(name, "lab ap");
        EXPECT_EQ(session.slot.call.parms.count, 0u);
    }
}

TEST(ExecuteLogout, EndsTheSessionAndTouchesNothingMore)
{
    TypingSession session;
    EXPECT_EQ(session.type("logout<enter>"), "logout\n");
    EXPECT_TRUE(session.loggedOut);
    EXPECT_EQ(session.line(), "logout");
}

TEST(ExecuteDialogue, TakesTheNextLineAndKeepsTheParameters)
{
    TypingSession session;
    std::vector<std::string> texts;
    session.action = [&texts](ActionBlock& call) {
        texts.emplace_back(reinterpret_cast<const char*>(call.parms.value[0]));
        if (call.stage != 0) texts.emplace_back(reinterpret_cast<const char*>(call.parms.value[call.parms.count]));
        call.stage = call.stage == 0 ? 130 : 0;
    };
    EXPECT_EQ(session.type("set system name lab<enter>"), "set system name lab\n") << "no prompt: the action asks";
    EXPECT_EQ(session.type("yes<enter>"), "yes\nCommand> ");
    EXPECT_EQ(texts, (std::vector<std::string>{"lab", "lab", "yes"}));
}
}  // namespace
