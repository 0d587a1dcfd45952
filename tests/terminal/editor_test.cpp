// What keys do to the line on the screen: the editor that completes words, the one that dialogues use, history.
#include <gtest/gtest.h>

#include "support/service.h"
#include "support/terminal.h"

namespace {
class Editor : public testing::Test {
protected:
    Editor() { t.log_in(); }

    Service service;
    Terminal t{TerminalOptions{.columns = 200}};
};

struct Keys {
    const char* name;
    const char* keys;
    const char* printed;  // somewhere in what the keys bring
    const char* line;     // what then stands behind the prompt, blanks at its end aside
};
class SmartEditor : public Editor, public testing::WithParamInterface<Keys> {};
TEST_P(SmartEditor, LeavesTheLine)
{
    t.type(GetParam().keys);
    EXPECT_NO_THROW(t.until(GetParam().printed));
    EXPECT_NO_THROW(t.until_line(std::string("Command> ") + GetParam().line));
}
constexpr Keys kSmartKeys[] = {
    {"SpaceCompletes", "sh ", "show ", "show"},
    {"TabCompletes", "sh\t", "show ", "show"},
    {"CaseIsIgnored", "SH\t", "SHow ", "SHow"},
    {"TabOffersTheFirstKeyword", "\t", "add", "add"},
    {"DownStepsOn", "\t\x1b[B\x1b[B", "clear", "clear"},
    {"UpStepsBack", "\t\x1b[B\x1b[A", "change", "add"},
    {"UpAtTheFirstRings", "\t\x1b[A", "\a", "add"},
    {"TabRingsWhereSeveralFit", "s\t", "\a", "s"},
    {"TabRefusesWhatNothingFits", "xyz\t", " Error: \"xyz\" is not a legal keyword.\a\nCommand> xyz", "xyz"},
    {"SpaceListsWhereSeveralFit", "s ", "\nsave           set            show           \nCommand> s", "s"},
    {"SpaceDropsWhatNothingFits", "xyz ",
     " Error: Keyword \"xyz\" is ambiguous in this command.\a\n use following keywords or parameters:\n\nadd  ", ""},
    {"QuestionListsFirstWords", "?",
     "?\nadd            change         clear          delete         disable        \n"
     "enable         help           logout         ping           reset          \n"
     "save           set            show           \nCommand> ",
     ""},
    {"QuestionInTheLineKeepsIt", "show s?", "\nCommand> show s", "show s"},
    {"QuestionWithNothingToSay", "xyz?", " Error: Associated help information is not available.\a\nCommand> xyz",
     "xyz"},
    {"BackspaceReturnsToTheWord", "sh \b\b", "\b \b\b \b", "sho"},
    {"BackspaceAtTheStartRings", "\b", "\a", ""},
    {"CtrlLErases", "show system\x0c", "\b", ""},
    {"CtrlCAbandons", "show sys\x03", "^C\a\nCommand> ", ""},
    {"UnknownKeyRings", "sh\x18", "\a", "sh"},
    {"IncompleteStays", "show\n", " Error: Incomplete command, use \"?\" to get help\a\nCommand> show", "show"},
    {"AmbiguousStays", "show sys\n", " Error: Keyword \"sys\" is ambiguous in this command.\a\nCommand> show sys",
     "show sys"},
    {"UnknownStays", "xyz\n", " Error: \"xyz\" is not a legal keyword.\a\nCommand> xyz", "xyz"},
    {"BlanksOnlyPromptAgain", "  \n", "\nCommand> ", ""},
    {"EightiethCharacterOfAWord", "01234567890123456789012345678901234567890123456789012345678901234567890123456789",
     " Error: Keyword or parameter length is too long.\a\nCommand> 0123",
     "0123456789012345678901234567890123456789012345678901234567890123456789012345678"},
    {"QuotedBlanksAndQuestion", "set system contact \"who ? me\"\n", "System contact: who ? me\nCommand> ", ""},
};
INSTANTIATE_TEST_SUITE_P(Keys, SmartEditor, testing::ValuesIn(kSmartKeys),
                         [](const auto& keys) { return keys.param.name; });

TEST_F(Editor, CtrlEShowsThePromptInItsOtherForm)
{
    t.type("sh\x05");
    t.until("\a\n You have switched to Advanced prompt mode\nCommand>>> sh");
    t.type("\x05");
    t.until("\a\n You have switched to Express prompt mode\nCommand> sh");
}

TEST_F(Editor, RefusesThe121stCharacter)
{
    t.type("show" + std::string(116, ' '));
    t.type("x");
    t.until("\n Error: Line length is too long.\a\nCommand> show" + std::string(116, ' '));
    EXPECT_EQ(t.screen().column(), std::string_view("Command> ").size() + 120);
    t.type("\n");
    t.until("Incomplete command");
}

// The recalled line is parsed again, so it can be run and edited like a typed one.
TEST_F(Editor, RecallsLines)
{
    t.type("set system name first\n");
    t.until("System Name: first\nCommand> ");
    t.type("set system name second\n");
    t.until("System Name: second\nCommand> ");
    t.type("\x10");
    t.until_line("Command> set system name second");
    t.type("\x10");
    t.until_line("Command> set system name first");
    t.type("\x0e");
    t.until_line("Command> set system name second");
    t.type("\b\b\b\bret\n");  // the first takes the blank that follows a completed word
    t.until("System Name: secret\nCommand> ");
    t.type("\x10\x0e");
    t.until_line("Command>");
}

// The editor of answers, at the question of the help dialogue.
class LineEditor : public Editor, public testing::WithParamInterface<Keys> {};
TEST_P(LineEditor, LeavesTheAnswer)
{
    t.type("help\n");
    const std::string listing = t.until("detail information: ");
    const std::string question = listing.substr(listing.rfind('\n') + 1);
    t.type(GetParam().keys);
    EXPECT_NO_THROW(t.until(GetParam().printed));
    EXPECT_NO_THROW(t.until_line(question + GetParam().line));
    t.type("\x03");
    EXPECT_NO_THROW(t.until("^C\a\nCommand> "));
}
constexpr Keys kLineKeys[] = {
    {"InsertsAtTheCursor", "13\x1b[D2", "23\b", "123"},
    {"InsertsAtTheStart", "23\x1b[G1", "123\b\b", "123"},
    {"GoesToTheEnd", "12\x1b[G\x1b[O3", "3", "123"},
    {"GoesRight", "13\x1b[D\x1b[D\x1b[C2", "23\b", "123"},
    {"LeftAtTheStartRings", "\x1b[D", "\a", ""},
    {"RightAtTheEndRings", "1\x1b[C", "\a", "1"},
    {"BackspaceInTheLine", "1243\x1b[D\b", "\b", "123"},
    {"BackspaceAtTheStartRings", "\b", "\a", ""},
    {"DeletesAtTheCursor", "123\x1b[G\x1b[S", "\b", "23"},
    {"DeletesTheLast", "123\x1b[D\x1b[S", "\b", "12"},
    {"ErasesTheLastWord", "one two\x17", "\b \b", "one"},
    {"ErasesTheLine", "one two\x0c", "\b", ""},
    {"Delete127Rings", "1\x7f", "\a", "1"},
    {"UpRings", "1\x1b[A", "\a", "1"},
};
INSTANTIATE_TEST_SUITE_P(Keys, LineEditor, testing::ValuesIn(kLineKeys),
                         [](const auto& keys) { return keys.param.name; });
}  // namespace
