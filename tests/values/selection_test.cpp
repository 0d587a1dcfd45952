#include "values/parser_case.h"
#include "values/parsers.h"
#include "values/selection.h"

namespace {
// clang-format off
constexpr ParserCase kCases[] = {
    {"AmbiguousLetter",      CliParseMACFilterMode,   "d",        kMacFilterMode},
    {"EnoughForAnyEntry",    CliParseMACFilterMode,   "g",        kMacFilterMode},
    {"OtherCase",            CliParseMACFilterMode,   "DENY",     kOk, 2},
    {"LongerThanEntry",      CliParseMACFilterMode,   "disabled", kMacFilterMode},
    {"OneLetterIsEnough",    CliParseOperationalMode, "w",        kOk, 2},
    {"BlanksOnly",           CliParseOperationalMode, "   ",      kOperationalMode},
    {"RadioTooShort",        CliParseRadioName,       "radio",    kRadioName},
    {"LanIsNoRadio",         CliParseRadioName,       "lan100",   kRadioName},
    {"RadioLast",            CliParseRadioOrLanName,  "Radio6",   kOk, 6},
    {"LanTooShort",          CliParseRadioOrLanName,  "lan2",     kRadioOrLanName},
};
// clang-format on
class SelectionParser : public ParserTest {};
TEST_P(SelectionParser, AppendsOrRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Texts, SelectionParser, testing::ValuesIn(kCases), kCaseName);

TEST(CliLookupValue, TakesTheFirstKeyWithinTheCount)
{
    constexpr std::uint32_t keys[] = {5, 7, 5, 9}, values[] = {50, 70, 51, 90};
    EXPECT_EQ(CliLookupValue(5, keys, values, 4), 50u);
    EXPECT_EQ(CliLookupValue(9, keys, values, 3), 0u);
}
}  // namespace
