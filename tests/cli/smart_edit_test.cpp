#include <gtest/gtest.h>
#include <random>

#include "cli/line_edit.h"
#include "cli/smart_edit.h"
#include "cli/tables.h"
#include "cli/token.h"
#include "support/screen.h"
#include "support/typing_session.h"
#include "support/written.h"

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

// What must hold after every key in smart mode: the line is the typed words, the vector holds the values of those
// behind which a blank stands, and the operator sees the line behind the prompt.
class Invariant {
public:
    explicit Invariant(const TypingSession& typing) : session(typing) {}

    void expect() const
    {
        ASSERT_EQ(session.edit.line.cursor, session.edit.line.length);
        ASSERT_EQ(std::string(session.edit.line.text), session.line()) << "NUL-filled behind its end";
        std::size_t at = 0;
        Word values = 0;
        ASSERT_NO_FATAL_FAILURE(expect_words(*session.edit.current, at, values));
        ASSERT_EQ(at, session.line().size());
        ASSERT_EQ(session.slot.call.parms.count, values);
    }

private:
    // Walks the words up to `node`, the first one first; `at` ends behind the last of them.
    void expect_words(const ParseNode& node, std::size_t& at, Word& values) const
    {
        if (node.prev) {
            ASSERT_NO_FATAL_FAILURE(expect_words(*node.prev, at, values));
            values += values_of(node.prev->matchedToken);
            ASSERT_EQ(node.position, node.prev->position + 1);
        } else {
            ASSERT_EQ(node.position, 0u);
        }
        const std::string line = session.line();
        if (const std::size_t word = line.find_first_not_of(' ', at); word != at) {
            if (node.prev && at < line.size()) {
                ASSERT_NE(word, at);
            }
            at = std::min(word, line.size());
        }
        std::string text = node.word;
        if (text.size() + 2 == node.wordLength) text = '"' + text + '"';
        ASSERT_EQ(text.size(), node.wordLength);
        ASSERT_EQ(line.substr(at, text.size()), text);
        at += text.size();
    }
    static Word values_of(std::uint32_t token)
    {
        if (token == number_of(Token::pmMACAddress)) return 2;
        if (token == number_of(Token::pmDate)) return 3;
        return token > kKeywordEnd ? 1 : 0;
    }

    const TypingSession& session;
};

TEST(SmartEditAtRandom, LineWordsValuesAndScreenStayInStep)
{
    // clang-format off
    static const char* const kPieces[] = {
        "sh", "set ", "s", "add ", "mac ", "filter ", "system ", "name ", "ip ", "dhcp ", "ping ", "1.2.3.4",
        "\"a b\"", "\"", "lab ", "00-11-22-33-44-55 ", "<up>", "<tab>", "<tab>", "<down>", "<ctrl-p>",
        "<ctrl-n>", "<ctrl-e>", "<ctrl-x>", " ", " ", " ", "?", "<backspace>", "<backspace>", "<left>",
        "<ctrl-l>", "7", "x y", "show ", "server ", "contact ", "wwwwwwwwwwwwwwwww", "<enter>", "radius ",
        "    ", "en ", "mode ", "community ", "string read ", "\"a\"b c", "port ", "telnet "};
    // clang-format on
    std::mt19937 random(7);
    TypingSession session;
    Screen screen(100000);
    screen.feed(kPrompt);
    int ran = 0;
    session.action = [&ran](ActionBlock&) { ++ran; };
    for (int i = 0; i < 10000; ++i) {
        const char* piece = kPieces[random() % std::size(kPieces)];
        screen.feed(as_sent(session.type(piece)));
        ASSERT_NO_FATAL_FAILURE(Invariant(session).expect()) << "piece " << i << ": " << piece;
        const std::string shown = Prompt[0] + session.line();
        ASSERT_EQ(screen.column(), shown.size()) << "piece " << i << ": " << piece;
        ASSERT_EQ(screen.line().substr(0, shown.size()), shown) << "piece " << i << ": " << piece;
        ASSERT_EQ(screen.line().find_first_not_of(' ', shown.size()), std::string::npos);
    }
    EXPECT_GT(ran, 10);
}

TEST(BothModesAtRandom, NothingLeavesItsBounds)
{
    std::mt19937 random(11);
    TypingSession session;
    for (int i = 0; i < 10000; ++i) {
        if (random() % 200 == 0) session.edit.editMode = kNormalEdit;
        constexpr int kControl[] = {8, 9, 10, 12, 14, 16, 23, 24, -65, -66, -67, -68, -71, -79, -83, '"', ' ', ' '};
        session.press(random() % 3 == 0 ? kControl[random() % std::size(kControl)]
                                        : static_cast<int>(random() % 256) - 64);
        const LineRecord& line = session.edit.line;
        ASSERT_TRUE(line.length >= 0 && line.length <= kLineCapacity) << "key " << i;
        ASSERT_EQ(line.text[kLineCapacity], '\0');
        if (session.edit.editMode == kSmartEdit) {
            ASSERT_NO_FATAL_FAILURE(Invariant(session).expect()) << "key " << i;
        }
    }
}
}  // namespace
