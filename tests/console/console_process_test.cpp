#include <cstring>
#include <unistd.h>

#include "cli/edit_context.h"
#include "commands/password.h"
#include "console/console_process.h"
#include "console/typed_input.h"

using namespace std::string_literals;

namespace {
struct Folding {
    const char* name;
    std::string typed;
    std::vector<int> keys;
};
void PrintTo(const Folding& folding, std::ostream* out) { *out << folding.name; }
const Folding kFoldings[] = {
    {"ByteAbove127IsNegative", "\xc8", {-56}},
    {"NulIsNoKey", "a\0b"s, {'a', 'b'}},
    {"EverythingUpToTheBracketIsSwallowed", "\x1bO\x03\nx[B", {-66}},
    {"NulBehindTheBracketIsSkipped", "\x1b[\0\0C"s, {-67}},
    {"NoBracketAtAll", "\x1b" + std::string(10001, 'x') + "Qz", {-'Q', 'z'}},
    {"OnlyNulsBehindTheBracket", "\x1b[" + std::string(101, '\0') + "z", {0, 'z'}},
};
class KeyFolding : public TypedInput, public testing::WithParamInterface<Folding> {};
TEST_P(KeyFolding, GivesTheEditorsTheseKeysAndShowsNothing)
{
    type(GetParam().typed);
    EXPECT_EQ(serve(), "");
    std::vector<int> keys;
    for (const Reached& key : reached) keys.push_back(key.key);
    EXPECT_EQ(keys, GetParam().keys);
}
INSTANTIATE_TEST_SUITE_P(Sequences, KeyFolding, testing::ValuesIn(kFoldings),
                         [](const auto& c) { return c.param.name; });

class KeyLoop : public TypedInput {};

TEST_F(KeyLoop, EndsWithTheInputWhereverThatIs)
{
    for (const char* keys : {"", "\x1b", "\x1b[", "\x1bxyz"}) {
        type(keys);
        EXPECT_EQ(serve(), "") << keys;
        EXPECT_EQ(passes, 0) << keys;
        EXPECT_TRUE(reached.empty()) << keys;
    }
}

TEST_F(KeyLoop, CtrlCDropsTheLineAndTheDialogue)
{
    std::strcpy(slot.edit->line.text, "show sys");
    slot.edit->line.cursor = slot.edit->line.length = 8;
    slot.call.stage = 0x8002;
    slot.call.parms.count = 2;
    std::strcpy(g_chPWD, "admin");

    type("\x03"
         "a");
    EXPECT_EQ(serve(), "^C\a\nCommand> ");
    EXPECT_EQ(reached, (std::vector<Reached>{{'a', false}})) << "Ctrl-C itself goes no further";
    EXPECT_EQ(slot.edit->line.length, 0);
    EXPECT_STREQ(slot.edit->line.text, "");
    EXPECT_EQ(slot.call.parms.count, 0u);
    EXPECT_STREQ(g_chPWD, "") << "what the dialogue was told is forgotten";
}

TEST_F(KeyLoop, RestartsTheTimeOutOnEveryKeyButNotOnNul)
{
    timeout = 600;
    alarm(5);
    type("\0"s);
    serve();
    EXPECT_LE(alarm(5), 5u);
    type("a");
    serve();
    EXPECT_GT(alarm(0), 590u);
}

TEST_F(KeyLoop, EndsAfterLogoutWithoutReadingAnotherKey)
{
    testing::internal::CaptureStdout();
    logout(slot);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\a Logged out, Good-Bye!\n");
    type("abc");
    serve();
    EXPECT_EQ(passes, 0);
    char next = 0;
    EXPECT_EQ(read(STDIN_FILENO, &next, 1), 1);
    EXPECT_EQ(next, 'a');
    EXPECT_EQ(CmdPrcInq.slots[0], nullptr);
}

TEST_F(KeyLoop, StartsTheLoginAgainOrEndsTheSession)
{
    slot.state = kEnteringPassword;
    testing::internal::CaptureStdout();
    EndSession(0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\a Warning: Login time expired\a\n");
    EXPECT_EQ(slot.state, kLoginNeeded);
    EndSession(0);
    EXPECT_EQ(slot.state, kEnding);
}

}  // namespace
