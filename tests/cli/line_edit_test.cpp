#include <gtest/gtest.h>
#include <random>
#include <string>

#include "cli/line_edit.h"
#include "support/screen.h"
#include "support/typed_keys.h"
#include "support/written.h"

namespace {
std::string text_of(const LineRecord& line) { return {line.text, static_cast<std::size_t>(line.length)}; }

const std::string kFullLine(kLineCapacity, 'x'), kStars(kLineCapacity, '*');
const std::string kLongWord(kWordCapacity, 'w');
const std::string kLineFull = "\n Error: Line length is too long.\a\nCommand> ";
const std::string kWordFull = "\n Error: Keyword or parameter length is too long.\a\nCommand> ";

struct Case {
    const char* name;
    std::string before;  // typed first, its output not looked at
    std::string keys;
    std::string line;
    int cursor;
    std::string output;
    bool echo = true;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

// clang-format off
const Case kCases[] = {
    {"TypesInTheMiddle",         "abd<left>",            "c",              "abcd",    3,   "cd\b"},
    {"BackspaceAtTheStart",      "ab<home>",             "<backspace>",    "ab",      0,   "\a"},
    {"DeleteInTheMiddle",        "abcd<home><right>",    "<delete>",       "acd",     1,   " \bcd \b\b\b"},
    {"DeleteTheLastThenType",    "abc<left><delete><left><delete>", "x",   "ax",      2,   "x"},
    {"DeleteAtTheEnd",           "ab",                   "<delete>",       "ab",      2,   "\a"},
    {"LeftAtTheStart",           "",                     "<left>",         "",        0,   "\a"},
    {"EraseWord",                "show system",          "<ctrl-w>",       "show ",   11,  "\b \b\b \b\b \b\b \b\b \b\b \b"},
    {"EraseWordAtABlank",        "show ",                "<ctrl-w>",       "show ",   5,   ""},
    {"EraseWordCursorInside",    "show system<home>",    "<ctrl-w>",       "show ",   0,   "\b \b\b \b\b \b\b \b\b \b\b \b"},
    {"BackspaceAfterErasedWord", "show system<ctrl-w>",  "<backspace>",    "show",    4,   "\b \b"},
    {"EraseEmptyLine",           "",                     "<ctrl-l>",       "",        0,   ""},
    {"Stars",                    "abd<left>",            "c<home><end><backspace>", "abc", 3, "**\b\b\b\b****\b \b", false},
    {"FullLine",                 kFullLine,              "y",              kFullLine, 120, kLineFull + kFullLine},
    {"FullLineStars",            kFullLine,              "y",              kFullLine, 120, kLineFull + kStars, false},
};
// clang-format on

class LineEdit : public testing::TestWithParam<Case> {};
TEST_P(LineEdit, LeavesLineCursorAndScreen)
{
    const Case& c = GetParam();
    LineRecord line{};
    const auto type = [&](std::string_view keys) {
        return written_by([&] { type_keys(keys, [&](int key) { line_edit(line, 0, key, c.echo); }); });
    };
    type(c.before);
    EXPECT_EQ(type(c.keys), c.output);
    EXPECT_EQ(text_of(line), c.line);
    EXPECT_EQ(line.cursor, c.cursor);
}
INSTANTIATE_TEST_SUITE_P(Keys, LineEdit, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

// The line as a plain string, and what an operator's terminal shows of it.
class Model {
public:
    void press(int key)
    {
        switch (key) {
        case key::kBackspace:
            if (cursor > 0) text.erase(--cursor, 1);
            break;
        case key::kDelete:
            if (cursor < text.size()) text.erase(cursor, 1);
            break;
        case key::kCtrlW:
            text.erase(text.find_last_of(' ') + 1);
            cursor = text.size();
            break;
        case key::kCtrlL:
            text.clear();
            cursor = 0;
            break;
        case key::kLeft: cursor -= cursor > 0; break;
        case key::kRight: cursor += cursor < text.size(); break;
        case key::kHome: cursor = 0; break;
        case key::kEnd: cursor = text.size(); break;
        default:
            if (!key::printable(key)) break;
            if (text.size() < kLineCapacity)
                text.insert(cursor++, 1, static_cast<char>(key));
            else
                margin = std::string("Command> ").size();
        }
    }
    void expect_shown(const Screen& screen) const
    {
        const std::string shown = screen.line().substr(std::min(margin, screen.line().size()));
        ASSERT_EQ(screen.column(), margin + cursor);
        ASSERT_EQ(shown.substr(0, text.size()), text);
        ASSERT_EQ(shown.find_first_not_of(' ', text.size()), std::string::npos);
    }

    std::string text;
    std::size_t cursor = 0;
    std::size_t margin = 0;
};

TEST(LineEditAtRandom, LineAndScreenAreThoseOfAPlainString)
{
    std::mt19937 random(20240501);
    constexpr int kEditing[] = {
        key::kBackspace, key::kBackspace, key::kDelete, key::kCtrlW, key::kCtrlL, key::kLeft, key::kLeft,
        key::kRight,     key::kHome,      key::kEnd,    key::kCtrlP, 0,           200,        key::kUp};
    LineRecord line{};
    Model model;
    Screen screen(10000);
    for (int i = 0; i < 20000; ++i) {
        int key = random() % 3 == 0 ? kEditing[random() % std::size(kEditing)] : static_cast<int>(' ' + random() % 95);
        if (key == key::kCtrlL && random() % 20 != 0) key = 'x';                 // let lines grow full
        if (key == key::kCtrlW && model.cursor != model.text.size()) key = ' ';  // its screen is only right at the end
        screen.feed(as_sent(written_by([&] { line_edit(line, 0, key, true); })));
        model.press(key);
        ASSERT_EQ(text_of(line), model.text) << "key " << i;
        if (key != key::kCtrlW) {
            ASSERT_EQ(line.cursor, static_cast<int>(model.cursor)) << "key " << i;
        }
        ASSERT_NO_FATAL_FAILURE(model.expect_shown(screen)) << "key " << i;
    }
}

class NormalEdit : public testing::Test {
protected:
    std::string type(std::string_view keys)
    {
        return written_by([&] { type_keys(keys, [this](int key) { normal_edit(edit, 0, key, true); }); });
    }
    void enter(const std::string& command)
    {
        type(command);
        copy_to_hiscmd(edit.history, edit.line);
        clear_line(edit.line);
    }
    std::string line() const { return text_of(edit.line); }

    EditContext edit{};
};

TEST_F(NormalEdit, RecallsTheLast15LinesNewestFirstAndStaysAtTheOldest)
{
    for (int i = 1; i <= 17; ++i) enter("command " + std::to_string(i));
    for (int i = 17; i >= 3; --i) {
        type("<ctrl-p>");
        EXPECT_EQ(line(), "command " + std::to_string(i));
        EXPECT_EQ(edit.line.cursor, edit.line.length);
    }
    type("<ctrl-p><ctrl-p>");
    EXPECT_EQ(line(), "command 3");
}

TEST_F(NormalEdit, RefusesTheCharacterThatNoWordCanHold)
{
    type(kLongWord);
    EXPECT_EQ(type("x"), kWordFull + kLongWord);
    EXPECT_EQ(line(), kLongWord);
    type(" x");
    EXPECT_EQ(line(), kLongWord + " x");
    type("<backspace><backspace><left>x");
    EXPECT_EQ(line(), kLongWord) << "in the middle too";
}

TEST_F(NormalEdit, BlanksInQuotesBelongToTheWord)
{
    const std::string quoted = "\"" + std::string(38, 'a') + " " + std::string(38, 'b');
    type(quoted + "c");
    EXPECT_EQ(line(), quoted) << "the closing quote needs the last place";
    type("\" c");
    EXPECT_EQ(line(), quoted + "\" c");
}

TEST_F(NormalEdit, AWordGrownByDeletingABlankDoesNotBarTheRestOfTheLine)
{
    type(std::string(50, 'a') + " " + std::string(50, 'b') + "<home> ");
    for (int i = 0; i < 50; ++i) type("<right>");
    type("<delete><home>x");
    EXPECT_EQ(line(), "x " + std::string(50, 'a') + std::string(50, 'b'));
}
}  // namespace
