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
    {"CompletionKeepsTheCase",  "",             "SH ",    "SHow ",     "SHow "},
    {"TabOnNone",               "xyz",          "<tab>",  "xyz",       "\n Error: \"xyz\" is not a legal keyword.\a\nCommand> xyz"},
    {"TabOffersTheFirst",       "",             "<tab>",  "add",       "add"},
    {"SpaceOnSeveral",          "s",            " ",      "s",         "\nsave           set            show           \nCommand> s"},
    {"SpaceOnNone",             "xyz",          " ",      "",          "\n Error: Keyword \"xyz\" is ambiguous in this command.\a\n"
                                                                       " use following keywords or parameters:\n" + kFirstWords + kPrompt},
    {"SpaceOnABadParameter",    "ping 1.2.3",   " ",      "ping ",     "\n Error: Keyword \"1.2.3\" is ambiguous in this command.\a\n"
                                                                       " use following keywords or parameters:\n"
                                                                       "\n<IP address>   \nCommand> ping "},
    {"DownFromTheOffer",        "<tab>",        "<down>", "change",    "\b \b\b \b\b \bchange"},
    {"UpAgain",                 "<tab><down>",  "<up>",   "add",       "\b \b\b \b\b \b\b \b\b \b\b \badd"},
    {"DownReplacesAWordBegun",  "show sy",      "<down>", "show arp",  "\b \b\b \barp"},
    {"HelpOnTheFirstWord",      "",             "?",      "",          "?" + kFirstWords + kPrompt},
    {"HelpOnNothing",           "xyz",          "?",      "xyz",       "?\n Error: Associated help information is not available.\a\nCommand> xyz"},
    {"BackspaceIntoTheWord",    "sh <backspace><backspace>", "<tab>", "show ", "w "},
    {"BackspaceThenOtherWord",  "sh <backspace><backspace><backspace><backspace>", "et ", "set ", "et "},
    {"BackspaceOneOfTwoBlanks", "show  ",       "<backspace>sy", "show sy", "\b \bsy"},
    {"QuotesTakeBlankAndHelp",  "set system name ", "\"a ?b\" ", "set system name \"a ?b\" ", "\"a ?b\" "},
    {"QuotesComeBack",          "set system name \"ab\" ", "<backspace><backspace>c\"", "set system name \"abc\"", "\b \b\b \bc\""},
    {"CtrlLErasesAll",          "show s",       "<ctrl-l>", "",        "\b\b\b\b\b\b      \b\b\b\b\b\b"},
    {"WordFull",                kLongWord,      "w",      kLongWord,   kWordFull + kLongWord},
    {"LineFull",                kBlanks,        "w",      kBlanks,     kLineFull + kBlanks},
    {"NoRoomToComplete",        kBlanks.substr(4) + "sh", " ", kBlanks.substr(4) + "sh", kLineFull + kBlanks.substr(4) + "sh"},
    {"NoRoomToOffer",           kBlanks.substr(2), "<tab>", kBlanks.substr(2), kLineFull + kBlanks.substr(2)},
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

TEST(SmartEditHistory, RecalledLineCanBeEditedOn)
{
    TypingSession session;
    session.type("ping 1.2.3.4<enter>");
    EXPECT_EQ(session.type("s<ctrl-p>"), "s\b \bping 1.2.3.4 ");
    EXPECT_EQ(session.slot.call.parms.count, 1u);
    EXPECT_EQ(session.type("<ctrl-n>"), std::string(13, '\b') + std::string(13, ' ') + std::string(13, '\b'));
    EXPECT_EQ(session.slot.call.parms.count, 0u);
    EXPECT_EQ(session.type("sh<ctrl-n>"), "sh") << "nothing newer to recall";
}

TEST(SwitchToSmart, ShowsWhatItAccepts)
{
    const std::string switched = "\n Now you have switched to the smart edit mode.\nCommand> ";
    TypingSession session(kNormalEdit);
    EXPECT_EQ(session.type("sh  sys now and then<home><ctrl-x>").substr(20 + 20), switched + "sh sys");
    EXPECT_EQ(session.edit.editMode, kSmartEdit);
    EXPECT_EQ(session.type("te<tab>"), "tem ");
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
