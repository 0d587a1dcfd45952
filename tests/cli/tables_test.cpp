#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "cli/command_rows.h"
#include "cli/keyword_rows.h"
#include "cli/started_session.h"
#include "cli/tables.h"

namespace {
using enum Token;

std::vector<Token> words(const CliCmdRow& row) { return {row.tokens.begin(), std::ranges::find(row.tokens, none)}; }
bool same(const CliCmdRow& a, const CliCmdRow& b) { return std::memcmp(&a, &b, sizeof a) == 0; }
bool same(const CliKeywordRow& a, const CliKeywordRow& b)
{
    return a.id == b.id && a.text == b.text && a.minLength == b.minLength;
}
template <class Table> bool same_tables(const Table& a, const Table& b)
{
    return std::ranges::equal(a, b, [](const auto& x, const auto& y) { return same(x, y); });
}

class Tables : public testing::Test {
protected:
    Tables() { start_tables(); }
    std::mt19937 random{1};
};

TEST_F(Tables, TheStartFindsNothingToMove)
{
    const auto keywords = gCliKeywordTable;
    const auto commands = gCliCmdTable;
    std::uint32_t count, total, visible, hidden;
    CliInitKeyword(gCliKeywordTable.data(), &count);
    CliInitCommand(gCliCmdTable.data(), &total, &visible, &hidden);
    EXPECT_TRUE(same_tables(gCliKeywordTable, keywords));
    EXPECT_TRUE(same_tables(gCliCmdTable, commands));
    EXPECT_EQ(count, 108u);
    EXPECT_EQ(total, 140u);
    EXPECT_EQ(visible, 120u);
    EXPECT_EQ(hidden, 20u);
}

TEST_F(Tables, AnyOrderOfTheRowsSortsToTheSame)
{
    auto commands = command_rows::kRows;
    for (int round = 0; round < 20; ++round) {
        auto keywords = keyword_rows::kRows;
        std::shuffle(keywords.begin(), keywords.end() - 1, random);
        std::shuffle(commands.begin(), commands.end() - 1, random);
        std::uint32_t count;
        CliInitKeyword(keywords.data(), &count);
        CliInitCommand(commands.data(), &count, &count, &count);
        for (std::size_t i = 0; i < keywords.size(); ++i) {
            ASSERT_EQ(keywords[i].id, gCliKeywordTable[i].id);
            ASSERT_EQ(keywords[i].minLength, gCliKeywordTable[i].minLength);
        }
        ASSERT_TRUE(same_tables(commands, gCliCmdTable));
    }
}

TEST_F(Tables, ShuffledLiveKeywordsAreFoundAgainAfterTheSort)
{
    const auto before = gCliKeywordTable;
    std::shuffle(gCliKeywordTable.begin(), gCliKeywordTable.end() - 1, random);
    start_tables();
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(gCliKeywordTable[i].id, before[i].id);
    EXPECT_STREQ(CliLookupKeyword(number_of(kwZShell)), "z_shell");
}

TEST_F(Tables, KeywordsStandInAlphabeticalOrder)
{
    std::vector<std::string> texts;
    for (const CliKeywordRow& row : gCliKeywordTable)
        if (row.text) texts.push_back(row.text);
    EXPECT_TRUE(std::ranges::is_sorted(texts));
    const std::vector<std::string> first = {"?", "accesspoint", "active", "add", "all", "ap", "arp", "authentication"};
    EXPECT_TRUE(std::equal(first.begin(), first.end(), texts.begin()));

    const auto mac = static_cast<std::size_t>(CliGetKeywordTableIndex(number_of(kwMac)));
    EXPECT_EQ(texts[mac], "mac");
    EXPECT_EQ(texts[mac + 1], "mac");
    EXPECT_NE(texts[mac - 1], "mac");
}

TEST_F(Tables, MinLengthTellsAKeywordFromItsNeighbours)
{
    const auto min_length = [](Token keyword) {
        return gCliKeywordTable[static_cast<std::size_t>(CliGetKeywordTableIndex(number_of(keyword)))].minLength;
    };
    EXPECT_EQ(min_length(kwQuestion), 1u);
    EXPECT_EQ(min_length(kwAccesspoint), 3u) << "active";
    EXPECT_EQ(min_length(kwMac), 4u) << "its double";
    EXPECT_EQ(min_length(kwRip), 4u) << "rip1";
    EXPECT_EQ(min_length(kwTime), 5u) << "timeout";
    EXPECT_EQ(min_length(kwSystem), 4u) << "syslogd, syswan";
    EXPECT_EQ(min_length(kwZShell), 3u);
}

TEST_F(Tables, UnknownIdsAreNotFound)
{
    for (const std::uint32_t id : {0u, kKeywordEnd, kParmFirst, 0xffffffffu}) {
        EXPECT_EQ(CliGetKeywordTableIndex(id), -1) << id;
        EXPECT_EQ(CliLookupKeyword(id), nullptr) << id;
    }
    for (const std::uint32_t id : {0u, 1u, 141u, 147u, 150u, kParmEnd, 0xffffffffu}) {
        EXPECT_EQ(CliLookupParmDescription(id), nullptr) << id;
        EXPECT_EQ(CliGetParserFunc(id), nullptr) << id;
    }
    EXPECT_STREQ(CliLookupParmDescription(number_of(pmString63)), "<string up to 63 characters>");
}

TEST_F(Tables, CommandsOfTheSameFirstWordsStandTogether)
{
    const std::pair<std::int32_t, std::int32_t> kBlocks[] = {{0, 120}, {120, 140}};
    for (const auto& [begin, end] : kBlocks) {
        std::set<std::vector<Token>> closed;
        std::vector<Token> before;
        for (std::int32_t i = begin; i < end; ++i) {
            std::vector<Token> now = words(command_row(i));
            for (auto prefix = before; !prefix.empty(); prefix.pop_back())
                if (!std::equal(prefix.begin(), prefix.end(), now.begin(),
                                now.begin() + std::min<std::ptrdiff_t>(std::ssize(now), std::ssize(prefix))))
                    closed.insert(prefix);
            for (auto prefix = now; !prefix.empty(); prefix.pop_back())
                EXPECT_FALSE(closed.contains(prefix)) << "row " << i << " was cut off from its like";
            before = now;
        }
    }
}

TEST_F(Tables, CommandsAreOrderedByTheirWords)
{
    struct Case {
        std::vector<Token> before, after;
    };
    const Case kCases[] = {
        {{kwShow}, {kwShow, kwSystem}},       // a command before its continuations
        {{kwShow, kwArp}, {kwShow, kwDhcp}},  // by spelling
        {{kwEnable, kwRip1, kwActive}, {kwEnable, kwRip1, kwPassive}},
        {{kwDelete, kwDmz}, {kwDelete, kwIp}},       // and not by id
        {{kwShow, kwZShell}, {kwShow, pmString15}},  // a keyword before a parameter
        {{kwShow, pmString15}, {kwShow, pmString30}},
    };
    const auto row = [](const std::vector<Token>& tokens) {
        CliCmdRow made{};
        std::ranges::copy(tokens, made.tokens.begin());
        return made;
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(CliCompareCmd(row(c.before), row(c.after)), -1);
        EXPECT_EQ(CliCompareCmd(row(c.after), row(c.before)), 1);
        EXPECT_EQ(CliCompareCmd(row(c.after), row(c.after)), 0);
    }
    EXPECT_EQ(CliCompareCmd(row(std::vector<Token>(12, kwShow)), row(std::vector<Token>(12, kwShow))), 0);
}

TEST_F(Tables, TokensEndWithTheRow)
{
    CliCmdRow full{};
    full.tokens.fill(kwShow);
    EXPECT_EQ(token_at(full, 11), number_of(kwShow));
    EXPECT_EQ(token_at(full, 12), 0u);
    EXPECT_EQ(token_at(full, 0xffffffff), 0u);
}

TEST_F(Tables, CountersAreUnknownBeforeTheStart)
{
    CliSetCmdcount(0, 0, 0);
    EXPECT_EQ(CliGetCmdCount(), -1);
    EXPECT_EQ(CliGetVisibleCmdCount(), -1);
    CliSetCmdcount(140, 120, 20);
    EXPECT_EQ(CliGetCmdCount(), 140);
    EXPECT_EQ(CliGetVisibleCmdCount(), 120);
}

TEST_F(Tables, EitherMaskAdmitsARow)
{
    struct Case {
        std::uint32_t device, any, all;
        bool admitted;
    };
    constexpr Case kCases[] = {
        {3, 1, 0, true}, {3, 0, 0, true}, {3, 4, 0, true},  {3, 0, 4, false},
        {3, 4, 3, true}, {3, 2, 8, true}, {0, 1, 1, false},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(CliMatchFeature(c.device, c.any, c.all), c.admitted) << c.any << ' ' << c.all;
        EXPECT_EQ(CliMatchInterface(c.device, c.any, c.all), c.admitted) << c.any << ' ' << c.all;
    }
    std::uint32_t features, interfaces;
    CliGetFeature(&features);
    CliProbeInterface(&interfaces);
    EXPECT_EQ(features, 1021u);
    EXPECT_EQ(interfaces, 3u);
    EXPECT_TRUE(std::ranges::all_of(gCliCmdTable, row_admitted));
    CliCmdRow row{};
    row.interfaceAll = 4;
    EXPECT_FALSE(row_admitted(row));
}
}  // namespace
