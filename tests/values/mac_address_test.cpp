#include "values/format.h"
#include "values/mac_address.h"
#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
struct Case {
    const char* name;
    const char* text;
    const char* mac;  // null: refused
    bool wellFormed;  // for isValidMacAddr, which wants two digits an octet
};
// clang-format off
constexpr Case kCases[] = {
    {"LowerCase",        "0a-1b-2c-3d-4e-5f",          "0a-1b-2c-3d-4e-5f", true},
    {"ShortOctets",      "0-1-2-3-4-5",                "00-01-02-03-04-05", false},
    {"LongOctet",        "0000000a-1-2-3-4-5",         "0a-01-02-03-04-05", false},
    {"OctetOfNine",      "00000000a-1-2-3-4-5",        nullptr,             false},
    {"OctetAbove255",    "100-1-2-3-4-5",              nullptr,             false},
    {"ShiftedSeparator", "0a-1b-2c-3d-4e5-f",          nullptr,             false},
    {"AllZero",          "00-00-00-00-00-00",          nullptr,             false},
    {"AllOnes",          "FF-ff-FF-ff-FF-ff",          nullptr,             false},
};
// clang-format on
class MacText : public testing::TestWithParam<Case> {};
TEST_P(MacText, FillsTwoWordsByteByByteOrIsRefused)
{
    ParmList words{};
    EXPECT_EQ(CliParseMACAddress(TypedText(GetParam().text), words), GetParam().mac ? kOk : kInvalidMACAddress);
    EXPECT_EQ(words.count, GetParam().mac ? 2u : 0u);
    EXPECT_STREQ(CliFormatMAC(words.value), GetParam().mac ? GetParam().mac : "00-00-00-00-00-00");
}
TEST_P(MacText, IsScannedAndJudgedAlike)
{
    unsigned char mac[kMacSize] = {};
    EXPECT_EQ(parse_mac_address(TypedText(GetParam().text), mac, '-'), GetParam().mac ? 0 : 1);
    EXPECT_STREQ(CliFormatMAC(mac), GetParam().mac ? GetParam().mac : "00-00-00-00-00-00");
    EXPECT_EQ(isValidMacAddr(TypedText(GetParam().text)), GetParam().wellFormed);
}
INSTANTIATE_TEST_SUITE_P(Texts, MacText, testing::ValuesIn(kCases), kCaseName);

TEST(ParseMacAddress, TakesColonsOrDashesAndNothingElse)
{
    unsigned char mac[kMacSize];
    EXPECT_EQ(parse_mac_address("0a:1b:2c:3d:4e:5f", mac, ':'), 0);
    EXPECT_STREQ(CliFormatMAC(mac), "0a-1b-2c-3d-4e-5f");
    EXPECT_EQ(parse_mac_address("0a.1b.2c.3d.4e.5f", mac, '.'), 1);
}
}  // namespace
