#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "cli/parse.h"
#include "cli/shortest_words.h"
#include "cli/started_session.h"
#include "cli/token.h"
#include "console/messages.h"

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
    {"Shortened",             "sh syst",                      100, ""},
    {"Longer",                "show system ip",               101, ""},
    {"Empty",                 "",                               0, "Command> "},
    {"Blanks",                "   ",                            0, "Command> "},
    {"Unknown",               "reboot now",                     0, not_a_keyword("reboot")},
    {"TooManyLetters",        "showing system",                 0, not_a_keyword("showing")},
    {"AmbiguousFirst",        "s system",                       0, ambiguous("s")},
    {"AmbiguousLater",        "show sys",                       0, ambiguous("sys")},
    {"AmbiguousBeforeExact",  "enable rip active",              0, ambiguous("rip")},
    {"AnotherKeywordPossible","show system extra",              0, not_a_keyword("extra")},
    {"Extra",                 "show telnet extra word",         0, error("\"extra\" and following input is/are extra in this command.")},
    {"ExtraAfterParameter",   "ping 1.2.3.4 5",                 0, error("\"5\" and following input is/are extra in this command.")},
    {"ParserRefuses",         "set http port 80x",              0, error("TCP and UDP use 16-bit port numbers")},
    {"ParserNamesItsLimit",   "set prompt abcdefghijklmnop",    0, string_rule(15)},
    {"KeywordBeforeText",     "show mac filter mode",          84, ""},
    {"KeywordBeginning",      "show mac filter mo",            84, ""},
    {"QuotedKeywordIsText",   "show mac filter \"mode\"",      85, ""},
    {"Engineering",           "z_d wan 1.2.3.4 1.2.3.4 1.2.3.4", 180, ""},
    {"WordOf79",              "disable log " + std::string(79, 'x'), 21, ""},
    {"WordOf80",              "disable log " + std::string(80, 'x'), 0, kTooLong},
    {"OnlyQuotes",            std::string(120, '"'),            0, not_a_keyword("\"\"")},
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

TEST_F(Parse, TextsOfALineStayApartUntilTheActionReadsThem)
{
    ASSERT_EQ(parse("z_debug set port \"a b\" c 1 \"d"), 1);
    EXPECT_EQ(slot.call.cmdId, 182);
    ASSERT_EQ(parms().count, 4u);
    EXPECT_STREQ(text_parm(0), "a b");
    EXPECT_STREQ(text_parm(1), "c");
    EXPECT_STREQ(text_parm(2), "1");
    EXPECT_STREQ(text_parm(3), "d");
}

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

TEST_F(Parse, ARecalledLineGetsANodeForEachWord)
{
    ASSERT_EQ(recall("set  system name \"a b\""), 1);
    EXPECT_EQ(line(), "set system name \"a b\" ");
    EXPECT_EQ(edit.line.cursor, edit.line.length);
    EXPECT_STREQ(text_parm(0), "a b");
    std::uint32_t position = 4;
    for (const ParseNode* node = edit.current; node; node = node->prev) EXPECT_EQ(node->position, position--);
    EXPECT_EQ(edit.current->prev->matchedToken, number_of(pmString30));
    EXPECT_EQ(edit.current->expect.mayEnd, kMayEnd);
    EXPECT_EQ(word(), "");
}

TEST_F(Parse, AFullLineIsRecalledWithoutTheLastBlank)
{
    replace_commands({{kwDisable, pmFacility, pmFacility}});
    const std::string full = "disable " + std::string(56, 'a') + ' ' + std::string(55, 'b');
    ASSERT_EQ(full.size(), static_cast<std::size_t>(kLineCapacity));
    EXPECT_EQ(recall(full), 1);
    EXPECT_EQ(line(), full);
    EXPECT_EQ(edit.current->position, 3u);
}

// What a parameter of each type may look like.
std::string sample(Token type)
{
    static const std::map<Token, std::string> kSamples = {
        {pmString30, "\"a name\""},
        {pmString60, "\"60 characters\""},
        {pmMACAddress, "00-11-22-33-44-55"},
        {pmIPAddress, "192.168.1.2"},
        {pmTCPUDPPort, "8080"},
        {pmTimeout, "10"},
        {pmLogLevel, "7"},
        {pmReattempt, "30"},
        {pmRetry, "5"},
        {pmMACFilterMode, "grant"},
        {pmDestIP, "10.0.0.0"},
        {pmDestNetmask, "255.0.0.0"},
        {pmGatewayAddress, "192.168.1.1"},
        {pmDecInt, "42"},
    };
    const auto found = kSamples.find(type);
    return found == kSamples.end() ? "x1" : found->second;
}

TEST_F(Parse, EveryCommandTypedInFullIsFound)
{
    for (std::int32_t i = 0; i < CliGetCmdCount(); ++i) {
        std::string text;
        for (std::uint32_t at = 0; const std::uint32_t token = token_at(command_row(i), at); ++at)
            text += (is_keyword(token) ? CliLookupKeyword(token) : sample(static_cast<Token>(token))) + " ";
        EXPECT_EQ(parse(text), 1) << text << screen;
        EXPECT_EQ(slot.call.cmdId, command_row(i).cmdId) << text;
        EXPECT_EQ(recall(text), 1);
        EXPECT_EQ(line(), text);
        EXPECT_EQ(command_row(edit.current->low).tokens, command_row(i).tokens);
    }
}

// One letter less is taken for no command, unless it would leave no word.
TEST_F(Parse, EveryCommandIsFoundByItsShortestWordsAndByNothingShorter)
{
    for (const CliCmdRow& row : command_rows::kRows) {
        std::string text;
        for (std::size_t at = 0; row.tokens[at] != none; ++at) {
            const std::string word = is_word(row.tokens[at]) ? shortest_word(row, at) : sample(row.tokens[at]);
            if (is_word(row.tokens[at]) && word.size() > 1) {
                EXPECT_EQ(parse(text + word.substr(0, word.size() - 1)), 0) << text << word;
                EXPECT_NE(screen.find("ambiguous"), std::string::npos) << text << word << screen;
            }
            text += word + " ";
        }
        if (row.cmdId == kCommandEnd) continue;
        EXPECT_EQ(parse(text), 1) << text << screen;
        EXPECT_EQ(slot.call.cmdId, row.cmdId) << text;
    }
}

TEST_F(Parse, AnythingTypedIsTakenOrRefused)
{
    std::minstd_rand random(7);
    const auto any_word = [&random]() -> std::string {
        switch (random() % 6) {
        case 0: return std::string(random() % 130, '"');
        case 1: return '"' + std::string(random() % 70, 'q') + (random() % 2 ? "\"" : " q");
        case 2: return sample(static_cast<Token>(kParmFirst + random() % (kParmEnd - kParmFirst)));
        case 3: return std::string(1, static_cast<char>(1 + random() % 255));
        default: return CliLookupKeyword(static_cast<std::uint32_t>(1 + random() % (kKeywordEnd - 1)));
        }
    };
    for (int round = 0; round < 20000; ++round) {
        std::string text = CliLookupKeyword(gCliKeywordTable[random() % 109].id);
        for (unsigned words = random() % 8; words > 0; --words) text += ' ' + any_word();
        const int taken = parse(text);
        EXPECT_EQ(screen.empty(), taken == 1) << text;
        EXPECT_EQ(recall(text), 1);
        ASSERT_EQ(std::strlen(edit.line.text), static_cast<std::size_t>(edit.line.length));
    }
}
}  // namespace
