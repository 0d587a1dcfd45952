#include <gtest/gtest.h>
#include <vector>

#include "service/attached_table.h"

namespace {
constexpr std::size_t kEntry = 96;

struct Case {
    const char* name;
    std::uint32_t length, position;  // what the answer says
    std::size_t arrived;             // bytes of table that really follow the record
    std::size_t entries;
};
constexpr Case kCases[] = {
    {"LengthZeroAtAWildPosition", 0, 0xFFFFFFFF, 2 * kEntry, 0},
    {"LengthIsNoMultiple", 2 * kEntry + 95, kRecordSize, 2 * kEntry + 95, 2},
    {"LengthAboveWhatArrived", 0xFFFFFFFF, kRecordSize, 2 * kEntry + 1, 2},
    {"LaterPosition", 2 * kEntry, kRecordSize + kEntry, 3 * kEntry, 2},
    {"LaterPositionLeavesLess", 2 * kEntry, kRecordSize + kEntry, 2 * kEntry, 1},
    {"PositionInTheRecord", kEntry, 12, kEntry, 0},
    {"PositionBehindTheEnd", kEntry, kRecordSize + kEntry + 1, kEntry, 0},
    {"PositionOfAllOnes", 0xFFFFFFFF, 0xFFFFFFFF, kEntry, 0},
};
class Table : public testing::TestWithParam<Case> {};
TEST_P(Table, YieldsWholeEntriesThatAreReallyThere)
{
    // On the heap in its exact size, so that a read outside is seen.
    std::vector<unsigned char> response(kRecordSize + GetParam().arrived);
    for (std::size_t i = kRecordSize; i < response.size(); ++i)
        response[i] = static_cast<unsigned char>(i - kRecordSize);
    record::attachedLength.set(response.data(), GetParam().length);
    record::attachedPosition.set(response.data(), GetParam().position);

    const AttachedTable table(response.data(), response.size(), kEntry);
    EXPECT_EQ(table.size(), GetParam().entries);

    std::size_t walked = 0;
    for (unsigned char* entry : table) {
        const std::size_t position = GetParam().position - kRecordSize + walked * kEntry;
        EXPECT_EQ(entry, table[walked]);
        EXPECT_EQ(entry[0], static_cast<unsigned char>(position));
        EXPECT_EQ(entry[kEntry - 1], static_cast<unsigned char>(position + kEntry - 1));
        ++walked;
    }
    EXPECT_EQ(walked, GetParam().entries);
}
INSTANTIATE_TEST_SUITE_P(Answers, Table, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(TableWithoutAResponse, IsEmpty)
{
    unsigned char shortResponse[kRecordSize - 1] = {};
    EXPECT_EQ(AttachedTable(nullptr, 0, kEntry).size(), 0u);
    EXPECT_EQ(AttachedTable(shortResponse, sizeof shortResponse, kEntry).size(), 0u);
    for (unsigned char* entry : AttachedTable(nullptr, 0, kEntry)) FAIL() << static_cast<void*>(entry);
}
}  // namespace
