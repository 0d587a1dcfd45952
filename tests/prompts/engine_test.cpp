#include <gtest/gtest.h>

#include "prompts/dialogue.h"
#include "prompts/engine.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
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
    {"EmptyAnswer",        130,          "<enter>",              "\nCommand> ",                 1, ""},
    {"LongestAnswer",      130,          kLongest + "<enter>",   kLongest + "\nCommand> ",      1, kLongest},
    {"OneCharacterMore",   130,          kLongest + "b",         kLongest + kRetry + kLongest,  0, ""},
    {"OneMoreInside",      130,          kLongest + "<left>b",   kLongest + "\b" + kRetry + kLongest + "\b", 0, ""},
    {"UnseenAnswer",       0x8001,       "abc<enter>",           "***\nCommand> ",              1, "abc"},
    {"UnseenStaysUnseen",  0x8001,       kLongest + "b",         kStars + kRetry + kStars,      0, ""},
    {"CtrlEAnswersNothing", 130,         "a<ctrl-e>b<enter>",    "a\ab\nCommand>>> ",           1, "ab"},
    {"NoHistory",          130,          "<ctrl-p><up>",         "\a\a",                        0, ""},
    {"AnyKey",             kAnyKeyStage, "x",                    "\nCommand> ",                 1, ""},
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

TEST(StagedInputWithoutAction, EndsTheDialogue)
{
    AskedSession session(130);
    session.slot.call.cmdId = 119;
    EXPECT_EQ(session.type("<enter>"), "\nCommand dispatch entry not found\nCommand> ");
    EXPECT_EQ(session.slot.call.stage, 0u);
}

TEST(CliPromptX, CutsALongQuestionAndBringsItAgain)
{
    const std::string value(600, 'v');
    const std::string question = written_by([&] { CliPromptX(CliIpPrompt[1], value.c_str()); });
    EXPECT_EQ(question, (" IP address (" + value).substr(0, kPromptTextSize - 1));
    EXPECT_EQ(written_by([] { CliPromptLast(); }), question);
}

// A dialogue with what dialogues need: a way round questions, defaults of both kinds, a question whose words depend on
// an answer, going back with a reason, and an answer that is not shown.
enum Stage : std::uint32_t { kOver = 0, kAskWhether = 130, kAskPort, kAskName, kAskSecret = 140 | kUnseenStage };
std::uint32_t port;
std::string secret;

const char* no_shown() { return CliFormatYesNo(0); }
std::uint32_t port_number() { return port; }
const char* name_shown() { return "Unspecified"; }
const char* name_wording() { return port == 80 ? " enter web name (%s): " : " enter name (%s): "; }

Next after_whether(Answer answer)
{
    if (!answer.given) return {kAskWhether, kOk, "perhaps"};
    return {answer.value ? kAskPort : kOver};
}
Next after_port(Answer answer)
{
    if (answer.given) port = static_cast<std::uint32_t>(answer.value);
    return {kAskName};
}
Next after_name(Answer answer)
{
    if (std::string_view(answer.text) == "back") return {kAskPort, kUpperPoolBelowLower};
    return {kAskSecret};
}
Next after_secret(Answer answer)
{
    secret = answer.text;
    return {kOver};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskWhether, .text = CliIpPrompt[0],           .shown = no_shown,     .validate = parse_yesno,       .after = after_whether},
    {.stage = kAskPort,    .text = CliRadiusServerPrompt[2], .number = port_number, .validate = parse_radius_port, .after = after_port},
    {.stage = kAskName,    .shown = name_shown, .wording = name_wording, .after = after_name},
    {.stage = kAskSecret,  .text = CliRadiusServerPrompt[3], .after = after_secret},
};
// clang-format on

class Dialogue : public testing::Test {
protected:
    Dialogue()
    {
        port = 443;
        secret.clear();
        session.action = [](ActionBlock& call) { run_dialogue(kQuestions, call, 0); };
    }
    void begin() { session.type("set system ip<enter>"); }

    TypingSession session;
};

TEST_F(Dialogue, AsksItsQuestionsInTurn)
{
    const std::string whether = " obtain IP address automatically (no, yes/no): ";
    EXPECT_EQ(session.type("set system ip<enter>"), "set system ip\n" + whether);
    EXPECT_EQ(session.type("nope<enter>"), "nope\n Error: Action confirm word must be \"yes\" or \"no\"\a\n" + whether);
    EXPECT_EQ(session.type("<enter>"), "\n obtain IP address automatically (perhaps, yes/no): ");
    EXPECT_EQ(session.type("y<enter>"), "y\n enter port number (443, 1-65535): ");
    EXPECT_EQ(session.type("80<enter>"), "80\n enter web name (Unspecified): ");
    EXPECT_EQ(session.type("back<enter>"),
              "back\n Error: Invalid Dhcp Ip address range \a\n enter port number (80, 1-65535): ");
    EXPECT_EQ(session.type("<enter>x<enter>"), "\n enter web name (Unspecified): x\n enter shared secret: ");
    EXPECT_EQ(session.type("abc<enter>"), "***\nCommand> ");
    EXPECT_EQ(secret, "abc");
}

TEST_F(Dialogue, EndsEarlyWhenAnAnswerSaysSo)
{
    begin();
    EXPECT_EQ(session.type("n<enter>"), "n\nCommand> ");
    EXPECT_EQ(session.slot.call.stage, 0u);
}

TEST_F(Dialogue, NeverFillsTheVectorAndKeepsTheCommandsParameters)
{
    begin();
    ParmList& words = session.slot.call.parms;
    words.value[0] = 7;
    words.count = 1;
    session.type("y<enter>");
    for (int i = 0; i < 50; ++i) session.type("8080<enter>back<enter>70000<enter>");
    EXPECT_EQ(words.count, 1u);
    EXPECT_EQ(words.value[0], 7u);
    EXPECT_EQ(port, 8080u);
}

TEST_F(Dialogue, AStageThatIsNoneOfItsOwnEndsIt)
{
    begin();
    session.slot.call.stage = 999;
    EXPECT_EQ(session.type("x<enter>"), "x\nCommand> ");
}
}  // namespace
