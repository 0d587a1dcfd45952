#include <array>
#include <cstring>

#include "values/date_time.h"
#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
using Packed = std::array<unsigned char, 3>;
constexpr Word kDirty = static_cast<Word>(-1);

struct Case {
    const char* name;
    Parser parser;
    const char* text;
    std::uint32_t message;
    Packed packed = {0xff, 0xff, 0xff};
};
// clang-format off
constexpr Case kCases[] = {
    {"Date",               CliParseDate, "12-31-99",   kOk, {0x12, 0x31, 0x99}},
    {"LeapDayOf2000",      CliParseDate, "02-29-00",   kOk, {0x02, 0x29, 0x00}},
    {"NoLeapDay",          CliParseDate, "02-29-01",   kInvalidDate},
    {"ShortMonth",         CliParseDate, "04-31-20",   kInvalidDate},
    {"HoursOnly",          CliParseTime, "7",          kOk, {0x07, 0x00, 0x00}},
    {"ColonBehind",        CliParseTime, "12:30:",     kOk, {0x12, 0x30, 0x00}},
    {"HoursAbove",         CliParseTime, "24:00:00",   kInvalidTime},
    {"FourFields",         CliParseTime, "1:2:3:4",    kInvalidTime},
};
// clang-format on
class DateTimeText : public testing::TestWithParam<Case> {};
TEST_P(DateTimeText, IsPackedIntoTheFirstThreeBytesOrRefused)
{
    const Word taken = GetParam().parser == CliParseDate ? 3 : 1;
    ParmList words{{kDirty, kDirty}, 0};
    EXPECT_EQ(GetParam().parser(TypedText(GetParam().text), words), GetParam().message);
    EXPECT_EQ(words.count, GetParam().message == kOk ? taken : 0);
    EXPECT_EQ(std::memcmp(words.value, GetParam().packed.data(), 3), 0);
    EXPECT_EQ(reinterpret_cast<unsigned char*>(words.value)[3], 0xff);
    EXPECT_EQ(words.value[1], kDirty);
}
INSTANTIATE_TEST_SUITE_P(Texts, DateTimeText, testing::ValuesIn(kCases), kCaseName);

// clang-format off
constexpr ParserCase kZones[] = {
    {"MinutesIgnored",  CliParseTimezone, "+5:30",      kOk, 300},
    {"RangeIgnored",    CliParseTimezone, "13",         kOk, 780},
    {"ProductWraps",    CliParseTimezone, "-71582789",  kOk, -44},
};
// clang-format on
class TimezoneParser : public ParserTest {};
TEST_P(TimezoneParser, NeverRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Texts, TimezoneParser, testing::ValuesIn(kZones), kCaseName);

TEST(Maketm, LeavesTheTimeAloneWhenATextIsBad)
{
    std::tm kept{};
    kept.tm_mday = 7;
    EXPECT_EQ(maketm(nullptr, "1:2:3", &kept), 1);
    EXPECT_EQ(maketm("2024/1/1", "1:2:99999999999", &kept), 1);
    EXPECT_EQ(kept.tm_mday, 7);
}
}  // namespace
