#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "cli/command_rows.h"
#include "cli/keyword_rows.h"
#include "cli/started_session.h"
#include "cli/tables.h"

namespace {
bool same(const CliCmdRow& a, const CliCmdRow& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

class Tables : public testing::Test {
protected:
    Tables() { start_tables(); }
    std::mt19937 random{1};
};

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
        ASSERT_TRUE(std::ranges::equal(commands, gCliCmdTable, same));
    }
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
        EXPECT_EQ(CliMatchInterface(c.device, c.any, c.all), c.admitted) << c.any << ' ' << c.all;
    }
    CliCmdRow row{};
    row.interfaceAll = 4;
    EXPECT_FALSE(row_admitted(row));
}
}  // namespace
