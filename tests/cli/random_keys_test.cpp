// Keys at random, in both modes, against the plain model: after every key the line is the model's and stands on the
// screen, and what Enter makes run is what the model says, with the values of its words. A million keys; for more:
//
//     ROUTER_RANDOM_KEYS=10000000 script/test -R RandomKeys
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <random>

#include "cli/execute.h"
#include "cli/line_edit.h"
#include "cli/line_model.h"
#include "cli/parse.h"
#include "cli/sample_words.h"
#include "cli/shortest_words.h"
#include "support/screen.h"
#include "support/typing_session.h"
#include "support/written.h"

namespace {
constexpr unsigned kSeeds = 10;
const int kKeysEach = [] {
    const char* keys = std::getenv("ROUTER_RANDOM_KEYS");
    return (keys ? std::atoi(keys) : 1'000'000) / static_cast<int>(kSeeds);
}();

// Somebody who types commands, badly.
class Typist {
public:
    explicit Typist(unsigned seed) : random_(seed) {}

    bool chance(unsigned percent) { return random_() % 100 < percent; }
    int next_key()
    {
        if (due_.empty()) plan();
        const int key = due_.front();
        due_.pop_front();
        return key;
    }

private:
    template <class List> auto any(const List& list) { return list[random_() % std::size(list)]; }
    void type(std::string_view text)
    {
        for (const char c : text) {
            due_.push_back(c);
            if (chance(3)) slip();
        }
    }
    void slip()
    {
        using namespace key;
        static constexpr int kKeys[] = {kBackspace, kBackspace, kBackspace, kTab,   kTab,   kUp,    kDown,
                                        kDown,      kLeft,      kLeft,      kRight, kHome,  kEnd,   kDelete,
                                        kCtrlW,     kCtrlP,     kCtrlN,     kCtrlE, kCtrlX, kCtrlL, '?',
                                        ' ',        '"',        '~',        kEnter, -1,     127};
        const int key = chance(10) ? static_cast<signed char>(random_()) : any(kKeys);
        for (auto times = chance(20) ? random_() % 12 : 1; times > 0; --times) due_.push_back(key);
    }
    std::string keyword(const CliCmdRow& row, std::size_t place)
    {
        static std::map<std::pair<const CliCmdRow*, std::size_t>, std::string> shortest;  // finding one takes long
        std::string& found = shortest[{&row, place}];
        if (found.empty()) found = shortest_word(row, place);
        std::string text = chance(50) ? found : keyword_text(row.tokens[place]);
        if (chance(20)) text.resize(1 + random_() % text.size());
        if (chance(10)) text[0] = static_cast<char>(text[0] - 'a' + 'A');
        return text;
    }
    std::string value(Token type)
    {
        static const std::string kOdd[] = {"\"a ?b\"", "\"open", "\"\"", "1",    "99999",
                                           "a\"b",     "\"a\"b", "mode", "\" \""};
        if (chance(10)) return std::string(random_() % 90, any("xy\" "));
        return chance(25) ? any(kOdd) : sample_word(type);
    }
    void plan()
    {
        if (chance(2)) return type(std::string(1 + random_() % 125, any("w \"s")));
        static constexpr std::string_view kSeparators[] = {" ", " ", " ", "\t", "  "};
        const CliCmdRow& row = command_rows::kRows[random_() % (command_rows::kRows.size() - 1)];
        for (std::size_t at = 0; row.tokens[at] != Token::none; ++at) {
            type(is_word(row.tokens[at]) ? keyword(row, at) : value(row.tokens[at]));
            if (row.tokens[at + 1] != Token::none || chance(30)) type(any(kSeparators));
            if (chance(5)) slip();
        }
        if (chance(10)) type(" " + value(Token::pmString30));
        if (chance(85)) due_.push_back(key::kEnter);
    }

    std::mt19937 random_;
    std::deque<int> due_;
};

// Both get every key. What differs first is kept, to be told when standard output is the test's again.
struct Result {
    std::string difference{};
    int commands = 0, acted = 0;
};
class Pair : public Result {
public:
    Pair()
    {
        show_prompt();
        session_.action = [this](ActionBlock& call) { ++acted, compare_values(call.parms); };
    }

    void press(int key)
    {
        typed_ += key::printable(key) ? std::string(1, static_cast<char>(key)) : '<' + std::to_string(key) + '>';
        if (typed_.size() > kShown * 2) typed_.erase(0, kShown);
        // Erases from where the cursor is, though it shortens the line at its end.
        if (!model.smart && key == key::kCtrlW && model.cursor < model.line.size()) screenAsLine_ = false;

        ran_ = model.press(key);
        session_.slot.key = key;
        session_.slot.call.cmdId = 0;
        process_cmd_input(session_.slot);
        screen_.feed(as_sent(written_.take()));
        if (std::exchange(session_.loggedOut, false)) reset_pb(session_.edit), show_prompt();
        if (key == key::kEnter) screenAsLine_ = true;
        commands += ran_.cmdId != 0;
        compare_sessions();
    }
    // As when no memory is left for smart mode.
    void fall_back_to_normal()
    {
        reset_pb(session_.edit);
        session_.edit.editMode = kNormalEdit;
        model.clear();
        model.smart = false;
        typed_ += "<normal>";
    }

    LineModel model;

private:
    static constexpr std::size_t kShown = 400;

    void show_prompt() { screen_.feed(std::string("\r\n") + Prompt[0]); }
    void compare_sessions()
    {
        compare("line", session_.line(), model.line);
        compare<std::uint32_t>("command", session_.slot.call.cmdId, ran_.cmdId);
        compare("smart", session_.edit.editMode == kSmartEdit, model.smart);
        if (!model.smart) compare("cursor", static_cast<std::size_t>(session_.edit.line.cursor), model.cursor);
        if (!screenAsLine_) return;
        const std::string shown = Prompt[0] + model.line;
        const std::size_t cursor = model.smart ? model.line.size() : std::min(model.cursor, model.line.size());
        compare("screen", screen_.line(), shown + std::string(screen_.line().size() - shown.size(), ' '));
        compare("column", screen_.column(), std::strlen(Prompt[0]) + cursor);
    }
    template <class T> void compare(const char* what, const T& is, const T& should)
    {
        if (is == should || !difference.empty()) return;
        using testing::PrintToString;
        difference = what + (" is " + PrintToString(is)) + ", not " + PrintToString(should) + ", after ..." + typed_;
    }
    // The values are those that the parsers make of the words as they stood on the line.
    void compare_values(const ParmList& values)
    {
        Word at = 0;
        for (const LineModel::Word& word : ran_.words) {
            if (is_word(word.token)) continue;
            char text[kWordCapacity + 1]{};
            word.text.copy(text, kWordCapacity);
            ParmList alone{};
            std::copy_n(values.value + at, 3, alone.value);  // a parser need not write every byte of its words
            CliGetParserFunc(number_of(word.token))(text, alone);
            for (Word i = 0; i < alone.count; ++i, ++at) {
                const auto as_text = [](Word value) { return std::string(reinterpret_cast<const char*>(value)); };
                const Word here = reinterpret_cast<Word>(text);
                if (alone.value[i] >= here && alone.value[i] < here + sizeof text)
                    compare("text", as_text(values.value[at]), as_text(alone.value[i]));
                else
                    compare("value", values.value[at], alone.value[i]);
            }
        }
        compare("values", values.count, at);
    }

    TypingSession session_;
    LineModel::Ran ran_;
    Screen screen_{100000};
    bool screenAsLine_ = true;
    Written written_;
    std::string typed_;
};

class RandomKeys : public testing::TestWithParam<unsigned> {};
TEST_P(RandomKeys, LeaveTheLineThatTheRulesSay)
{
    Typist typist(GetParam());
    auto pair = std::make_unique<Pair>();
    for (int i = 0; i < kKeysEach && pair->difference.empty(); ++i) {
        if (pair->model.line.empty() && typist.chance(10)) pair->fall_back_to_normal();
        pair->press(typist.next_key());
    }
    const Result result = *pair;
    pair.reset();  // and standard output is the test's again
    EXPECT_EQ(result.difference, "");
    EXPECT_GT(result.commands, kKeysEach / 200);
    EXPECT_GT(result.acted, result.commands / 2);
}
INSTANTIATE_TEST_SUITE_P(Seeds, RandomKeys, testing::Range(1u, 1 + kSeeds));
}  // namespace
