#include <gtest/gtest.h>

#include "cli/line_edit.h"
#include "cli/smart_edit.h"
#include "support/typing_session.h"

namespace {
const std::string kPrompt = "Command> ";
const std::string kFirstWords = "\nadd            change         clear          delete         disable        "
                                "\nenable         help           logout         ping           reset          "
                                "\nsave           set            show           \n";
const std::string kLineFull = "\n Error: Line length is too long.\a\nCommand> ";
const std::string kWordFull = "\n Error: Keyword or parameter length is too long.\a\nCommand> ";
const std::string kLongWord(kWordCapacity, 'w');
const std::string kBlanks(kLineCapacity, ' ');

struct Case {
    const char* name;
    std::string before;  // typed first, its output not looked at
    std::string keys;
    std::string line;
    std::string output;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

// clang-format off
const Case kCases[] = {
    {"TabOnNone",               "xyz",          "<tab>",  "xyz",       "\n Error: \"xyz\" is not a legal keyword.\a\nCommand> xyz"},
    {"SpaceOnSeveral",          "s",            " ",      "s",         "\nsave           set            show           \nCommand> s"},
    {"SpaceOnNone",             "xyz",          " ",      "",          "\n Error: Keyword \"xyz\" is ambiguous in this command.\a\n"
                                                                       " use following keywords or parameters:\n" + kFirstWords + kPrompt},
    {"SpaceOnABadParameter",    "ping 1.2.3",   " ",      "ping ",     "\n Error: Keyword \"1.2.3\" is ambiguous in this command.\a\n"
                                                                       " use following keywords or parameters:\n"
                                                                       "\n<IP address>   \nCommand> ping "},
    {"HelpOnNothing",           "xyz",          "?",      "xyz",       "?\n Error: Associated help information is not available.\a\nCommand> xyz"},
    {"WordFull",                kLongWord,      "w",      kLongWord,   kWordFull + kLongWord},
    {"LineFull",                kBlanks,        "w",      kBlanks,     kLineFull + kBlanks},
};
// clang-format on

class SmartEdit : public testing::TestWithParam<Case> {};
TEST_P(SmartEdit, LeavesLineAndScreen)
{
    TypingSession session;
    session.type(GetParam().before);
    EXPECT_EQ(session.type(GetParam().keys), GetParam().output);
    EXPECT_EQ(session.line(), GetParam().line);
    EXPECT_EQ(session.edit.line.cursor, session.edit.line.length);
}
INSTANTIATE_TEST_SUITE_P(Keys, SmartEdit, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(SmartEditValues, BackspaceTakesTheValueBack)
{
    TypingSession session;
    session.type("add mac filter lab 00-11-22-33-44-55 ");
    EXPECT_EQ(session.slot.call.parms.count, 3u) << "a MAC address takes two words";
    session.type("<backspace>");
    EXPECT_EQ(session.slot.call.parms.count, 1u);
    session.type("<backspace>6 ");
    EXPECT_EQ(session.slot.call.parms.count, 3u);
    session.type("<ctrl-l>");
    EXPECT_EQ(session.slot.call.parms.count, 0u);
}

TEST(SmartEditMemory, WithoutANodeLeftTheEditorIsInNormalMode)
{
    TypingSession session;
    session.type("sh");
    ParseNode& last = session.edit.nodes[kMaxTokens];
    last = session.edit.nodes[0];
    session.edit.current = &last;
    EXPECT_EQ(session.type(" "),
              "\n Error: System memory low, unable to continue! Switch to normal mode.\a\nCommand> ");
    EXPECT_EQ(session.edit.editMode, kNormalEdit);
    EXPECT_EQ(session.line(), "");
    session.type("show<ctrl-x>");
    EXPECT_EQ(session.edit.editMode, kSmartEdit);
    EXPECT_EQ(session.line(), "show ");
}
}  // namespace
