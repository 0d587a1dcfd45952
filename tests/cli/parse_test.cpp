#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "cli/parse.h"
#include "cli/sample_words.h"
#include "cli/shortest_words.h"
#include "cli/started_session.h"
#include "cli/token.h"
#include "console/messages.h"
#include "support/golden.h"

namespace {
using enum Token;

std::string error(const std::string& text) { return " Error: " + text + "\a\nCommand> "; }
const std::string kTooLong = error("Keyword or parameter length is too long.");
std::string not_a_keyword(const std::string& word) { return error('"' + word + "\" is not a legal keyword."); }
std::string ambiguous(const std::string& w) { return error("Keyword \"" + w + "\" is ambiguous in this command."); }
std::string string_rule(int limit)
{
    return error("String here should be double quoted if contains spaces, up to " + std::to_string(limit) +
                 " characters");
}

struct Case {
    const char* name;
    std::string line;
    int cmdId;  // 0: refused
    std::string output;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

// clang-format off
const Case kCases[] = {
    {"Empty",                 "",                               0, "Command> "},
    {"Unknown",               "reboot now",                     0, not_a_keyword("reboot")},
    {"AmbiguousFirst",        "s system",                       0, ambiguous("s")},
    {"AmbiguousBeforeExact",  "enable rip active",              0, ambiguous("rip")},
    {"Extra",                 "show telnet extra word",         0, error("\"extra\" and following input is/are extra in this command.")},
    {"ExtraAfterParameter",   "ping 1.2.3.4 5",                 0, error("\"5\" and following input is/are extra in this command.")},
    {"ParserRefuses",         "set http port 80x",              0, error("TCP and UDP use 16-bit port numbers")},
    {"ParserNamesItsLimit",   "set prompt abcdefghijklmnop",    0, string_rule(15)},
    {"KeywordBeforeText",     "show mac filter mode",          84, ""},
    {"QuotedKeywordIsText",   "show mac filter \"mode\"",      85, ""},
    {"WordOf80",              "disable log " + std::string(80, 'x'), 0, kTooLong},
};
// clang-format on

class ParseCmdline : public testing::TestWithParam<Case> {};
TEST_P(ParseCmdline, FindsTheCommandOrSaysWhyNot)
{
    const Case& c = GetParam();
    StartedSession session;
    EXPECT_EQ(session.parse(c.line), c.cmdId != 0);
    EXPECT_EQ(session.slot.call.cmdId, c.cmdId);
    EXPECT_EQ(session.screen, c.output);
    if (c.cmdId == 0) {
        EXPECT_EQ(session.slot.call.parms.count, 0u);
    }
}
INSTANTIATE_TEST_SUITE_P(Lines, ParseCmdline, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

class Parse : public testing::Test, public StartedSession {
protected:
    const ParmList& parms() const { return slot.call.parms; }
    std::string line() const { return edit.line.text; }
    std::string word() const { return edit.current->word; }
};

TEST_F(Parse, AnExactSpellingWinsOverLongerKeywords)
{
    replace_commands({{kwEnable, kwRip}, {kwEnable, kwRip1}, {kwEnable, kwRip2}});
    const std::pair<const char*, int> kLines[] = {{"enable rip", 1}, {"ENABLE RIP", 1}, {"en rip2", 3}};
    for (const auto& [text, id] : kLines) {
        EXPECT_EQ(parse(text), 1) << text;
        EXPECT_EQ(slot.call.cmdId, id) << text;
    }
    EXPECT_EQ(parse("enable ri"), 0);
    EXPECT_EQ(screen, ambiguous("ri"));
}

TEST_F(Parse, TwoParameterTypesAreTriedInTurn)
{
    replace_commands({{kwSet, pmTCPUDPPort}, {kwSet, pmIPAddress, kwAll}, {kwSet, pmIPAddress}});
    EXPECT_EQ(parse("set 1.2.3.4"), 1);
    EXPECT_EQ(slot.call.cmdId, 3);
    EXPECT_EQ(parse("set 80"), 1);
    EXPECT_EQ(slot.call.cmdId, 1);
    EXPECT_EQ(parms().value[0], 80u);
    EXPECT_EQ(parse("set eighty"), 0);
    EXPECT_NE(screen.find("Invalid IP address"), std::string::npos) << "the last one's message";
}

TEST_F(Parse, LongestCommandUsesEveryNode)
{
    replace_commands({std::vector<Token>(kMaxTokens, kwShow)});
    std::string text;
    for (int i = 0; i < kMaxTokens; ++i) text += "show ";
    EXPECT_EQ(parse(text), 1);
    EXPECT_EQ(recall(text), 1);
    EXPECT_EQ(line(), text);
    EXPECT_EQ(create_next_node(edit, *edit.current), nullptr);
    EXPECT_EQ(parse(text + "show"), 0);
}

// One letter less is taken for no command, unless it would leave no word. Any mixture with whole words is the same row.
TEST_F(Parse, EveryCommandIsFoundByItsShortestWordsAndByNothingShorter)
{
    std::string list;
    for (const CliCmdRow& row : command_rows::kRows) {
        if (row.cmdId == kCommandEnd) break;
        std::vector<std::string> whole, shortest;
        std::string shown[2], before;
        for (std::size_t at = 0; row.tokens[at] != none; ++at) {
            const bool keyword = is_word(row.tokens[at]);
            whole.push_back(keyword ? keyword_text(row.tokens[at]) : sample_word(row.tokens[at]));
            shortest.push_back(keyword ? shortest_word(row, at) : whole[at]);
            shown[0] += ' ' + (keyword ? whole[at] : CliLookupParmDescription(number_of(row.tokens[at])));
            shown[1] += ' ' + (keyword ? shortest[at] : "<>");
            if (keyword && shortest[at].size() > 1) {
                EXPECT_EQ(parse(before + shortest[at].substr(0, shortest[at].size() - 1)), 0) << before << whole[at];
                EXPECT_NE(screen.find("ambiguous"), std::string::npos) << before << whole[at] << screen;
            }
            before += shortest[at] + ' ';
        }
        for (unsigned mixture = 0; mixture >> whole.size() == 0; ++mixture) {
            std::string text;
            for (std::size_t at = 0; at < whole.size(); ++at) text += (mixture >> at & 1 ? shortest : whole)[at] + ' ';
            EXPECT_EQ(parse(text), 1) << text << screen;
            EXPECT_EQ(slot.call.cmdId, row.cmdId) << text;
            EXPECT_EQ(gCliCmdTable[edit.current->prev->selected].tokens, row.tokens) << text;
            EXPECT_EQ(recall(text), 1) << text;
            EXPECT_EQ(line(), text);
            EXPECT_EQ(gCliCmdTable[edit.current->selected].tokens, row.tokens) << text;
        }
        list += std::to_string(row.cmdId) + "\t" + shown[0].substr(1) + "\t" + shown[1].substr(1) + "\n";
    }
    expect_golden("shortest_words.txt", list);
}

}  // namespace
