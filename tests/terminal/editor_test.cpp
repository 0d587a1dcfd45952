// What keys do to the line on the real screen. The editors' own tests know every key; here stand those whose bytes the
// terminal line and the key loop have a part in.
#include "terminal/dialogue_session.h"

namespace {
struct Keys {
    const char* name;
    const char* keys;
    const char* printed;  // somewhere in what the keys bring
    const char* line;     // what then stands behind the prompt, blanks at its end aside
};
class SmartEditor : public DialogueSession, public testing::WithParamInterface<Keys> {};
TEST_P(SmartEditor, LeavesTheLine)
{
    t.type(GetParam().keys);
    EXPECT_NO_THROW(t.until(GetParam().printed));
    EXPECT_NO_THROW(t.until_line(std::string(kPrompt) + GetParam().line));
}
constexpr Keys kSmartKeys[] = {
    {"SpaceCompletes", "SH ", "SHow ", "SHow"},
    {"TabOffersAndDownStepsOn", "\t\x1b[B\x1b[B", "clear", "clear"},
    {"UpStepsBack", "\t\x1b[B\x1b[A", "change", "add"},
    {"QuestionInTheLineKeepsIt", "show s?", "\nCommand> show s", "show s"},
    {"CtrlLErases", "show system\x0c", "\b", ""},
    {"CtrlCAbandons", "show sys\x03", "^C\a\nCommand> ", ""},
    {"UnknownKeyRings", "sh\x18", "\a", "sh"},
    {"IncompleteStays", "show\n", " Error: Incomplete command, use \"?\" to get help\a\nCommand> show", "show"},
    {"CtrlEChangesThePrompt", "sh\x05\x05", "Command>>> sh\a\n You have switched to Express prompt mode\n", "sh"},
    {"RecalledLineIsEdited", "set system name secret\n\x10\b\b\b\bond\n", "System Name: second\nCommand> ", ""},
};
INSTANTIATE_TEST_SUITE_P(Keys, SmartEditor, testing::ValuesIn(kSmartKeys),
                         [](const auto& keys) { return keys.param.name; });

// The editor of answers, at the question of the help dialogue.
class LineEditor : public DialogueSession, public testing::WithParamInterface<Keys> {};
TEST_P(LineEditor, LeavesTheAnswer)
{
    t.type("help\n");
    const std::string listing = t.until("detail information: ");
    const std::string question = listing.substr(listing.rfind('\n') + 1);
    t.type(GetParam().keys);
    EXPECT_NO_THROW(t.until(GetParam().printed));
    EXPECT_NO_THROW(t.until_line(question + GetParam().line));
    t.type(kCtrlC);
    EXPECT_NO_THROW(t.until("^C\a\nCommand> "));
}
constexpr Keys kLineKeys[] = {
    {"LeftAndRight", "13\x1b[D\x1b[D\x1b[C2", "23\b", "123"},
    {"HomeAndEnd", "12\x1b[G\x1b[O3", "3", "123"},
    {"DeletesAtTheCursor", "123\x1b[G\x1b[S", "\b", "23"},
    {"ErasesTheLastWord", "one two\x17", "\b \b", "one"},
    {"Delete127Rings", "1\x7f", "\a", "1"},
    {"UpRings", "1\x1b[A", "\a", "1"},
};
INSTANTIATE_TEST_SUITE_P(Keys, LineEditor, testing::ValuesIn(kLineKeys),
                         [](const auto& keys) { return keys.param.name; });
}  // namespace
