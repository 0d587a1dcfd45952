#include <gtest/gtest.h>

#include "prompts/dialogue.h"
#include "prompts/engine.h"
#include "prompts/prompts.h"
#include "support/typing_session.h"
#include "support/written.h"

namespace {
constexpr std::uint32_t kSetSystemIP = 68;
const std::string kLongest(kAnswerCapacity, 'a'), kStars(kAnswerCapacity, '*');
const std::string kRetry = "\n Error: Keyword or parameter length is too long.\a\n Retry : ";

// A session at a question of stage `stage`. The action takes one answer.
struct AskedSession : TypingSession {
    explicit AskedSession(std::uint32_t stage)
    {
        slot.call.stage = stage;
        slot.call.cmdId = kSetSystemIP;
        action = [this](ActionBlock& call) {
            ++calls;
            answer = answer_text(call);
            call.stage = 0;
        };
    }
    int calls = 0;
    std::string answer;
};

struct Case {
    const char* name;
    std::uint32_t stage;
    std::string keys;
    std::string output;
    int calls;
    std::string answer;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

// clang-format off
const Case kCases[] = {
    {"Answer",             130,          "ab<left><backspace>x<enter>", "ab\b\bb \b\bxb\b\nCommand> ", 1, "xb"},
    {"LongestAnswer",      130,          kLongest + "<enter>",   kLongest + "\nCommand> ",      1, kLongest},
    {"OneCharacterMore",   130,          kLongest + "b",         kLongest + kRetry + kLongest,  0, ""},
    {"OneMoreInside",      130,          kLongest + "<left>b",   kLongest + "\b" + kRetry + kLongest + "\b", 0, ""},
    {"UnseenAnswer",       0x8001,       "abc<enter>",           "***\nCommand> ",              1, "abc"},
    {"CtrlEAnswersNothing", 130,         "a<ctrl-e>b<enter>",    "a\ab\nCommand>>> ",           1, "ab"},
    {"NoHistory",          130,          "<ctrl-p><up>",         "\a\a",                        0, ""},
    {"AnyKeyOfAnyKind",    kAnyKeyStage, "<ctrl-e>",             "\nCommand> ",                 1, ""},
};
// clang-format on

class StagedInput : public testing::TestWithParam<Case> {};
TEST_P(StagedInput, TakesTheAnswer)
{
    AskedSession session(GetParam().stage);
    EXPECT_EQ(session.type(GetParam().keys), GetParam().output);
    EXPECT_EQ(session.calls, GetParam().calls);
    EXPECT_EQ(session.answer, GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(Keys, StagedInput, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(StagedInputWipes, NoByteOfAnAnswerStaysInTheSession)
{
    AskedSession session(0x8003);
    session.action = [](ActionBlock& call) { call.stage = 0x8001; };
    session.type("secret<backspace><backspace><enter>");
    const LineRecord& line = session.edit.line;
    EXPECT_EQ(std::string(line.text, sizeof line.text), std::string(sizeof line.text, '\0'));
}

TEST(CliPromptX, CutsALongQuestionAndBringsItAgain)
{
    const std::string value(600, 'v');
    const std::string question = written_by([&] { CliPromptX(CliIpPrompt[1], value.c_str()); });
    EXPECT_EQ(question, (" IP address (" + value).substr(0, kPromptTextSize - 1));
    EXPECT_EQ(written_by([] { CliPromptLast(); }), question);
}

}  // namespace
