#include <string>

#include "prompts/validators.h"
#include "values/parser_case.h"

namespace {
// clang-format off
constexpr ParserCase kCases[] = {
    {"RadiusPortLast",         parse_radius_port,        "65535",      kOk,                   65535},
    {"PrivatePort",            parse_private_port_num,   "8080",       kOk,                   8080},
    {"PrivatePortAbove",       parse_private_port_num,   "65536",      kInvalidPrivatePort},
    {"FranceNine",             parse_channel_france,     "9",          kChannelOutsideDomain},
    {"RtsZero",                parse_rts_cts_threshold,  "0",          kOk,                   0},
    {"RtsAbove",               parse_rts_cts_threshold,  "2348",       kRtsCtsRange},
    {"BeaconBelow",            parse_beacon_int,         "19",         kBeaconRange},
    {"Wep128",                 parse_wepkey_length,      "128",        kOk,                   13},
    {"Wep152",                 parse_wepkey_length,      "152",        kWepKeyLength},
    {"YesInAnyCase",           parse_yesno,              "yEs",        kOk,                   1},
    {"NoBehindBlanks",         parse_yesno,              "  n",        kOk,                   0},
    {"Nope",                   parse_yesno,              "nope",       kYesOrNo},
    {"DomainByTwo",            parse_wlan_reg_domain,    "fr",         kOk,                   0x32},
    {"DomainByOne",            parse_wlan_reg_domain,    "j",          kRegulatoryDomain},
    {"DomainInCapitals",       parse_wlan_reg_domain,    "JAPAN",      kOk,                   0x42},
    {"HalfPastFiveEast",       parse_timezone,           "+5:30",      kOk,                   330},
    {"HalfPastThreeWest",      parse_timezone,           "-3:30",      kOk,                   -210},
    {"HalfPastNineUnsigned",   parse_timezone,           "9:30",       kOk,                   570},
    {"HalfPastFiveWest",       parse_timezone,           "-5:30",      kInvalidTimezone},
    {"EightWestWithATail",     parse_timezone,           "-8:00 x",    kOk,                   -480},
    {"ThirteenHours",          parse_timezone,           "13:00",      kInvalidTimezone},
    {"Address",                parse_ip_addr,            "10.0.0.1",   kOk,                   0x0a000001},
};
// clang-format on
class Validator : public ParserTest {};
TEST_P(Validator, AppendsOrRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Answers, Validator, testing::ValuesIn(kCases), kCaseName);

struct NameCase {
    std::string text;
    std::uint32_t asTimeServer, asDdnsHost;
};
TEST(HostNames, DifferInWhatTheyTake)
{
    const NameCase cases[] = {
        {"time_1", kOk, kOk},
        {"time.example.org", kOk, kInvalidCharacter},
        {"lab-ap", kOk, kInvalidCharacter},
        {"two words", kTimeServerName, kInvalidCharacter},
        {"caf\xc3\xa9", kTimeServerName, kInvalidCharacter},
        {std::string(50, 'x'), kOk, kOk},
        {std::string(51, ' '), kLineTooLong, kLineTooLong},
    };
    for (const NameCase& c : cases) {
        EXPECT_EQ(parse_domainname(c.text.c_str(), c.text.size()), c.asTimeServer) << c.text;
        EXPECT_EQ(parse_ddns_hostname(c.text.c_str(), c.text.size()), c.asDdnsHost) << c.text;
    }
}

struct KeyCase {
    const char* text;
    unsigned octets;
    int refused;
    unsigned char first, second, last;  // of a key that held 0x55 before
};
TEST(ParseHexWepkey, FillsWhatIsThereOrClearsAll)
{
    // clang-format off
    constexpr KeyCase cases[] = {
        {"0a-1B-2c-3d-ff",                         5,  0, 0x0a, 0x1b, 0xff},
        {"0a",                                     5,  0, 0x0a, 0x55, 0x55},
        {"0a-",                                    5,  0, 0x0a, 0x55, 0x55},
        {"1-2-3-4-5-6-7-8-9-a-b-c-d",              13, 0, 0x01, 0x02, 0x0d},
        {"",                                       5,  1, 0,    0,    0},
        {"0a-1b-2c-3d-4e-",                        5,  1, 0,    0,    0},
        {"0a-1b-2c-3d-4e-5f",                      5,  1, 0,    0,    0},
        {"1-2-3-4-5-6-7-8-9-a-b-c-d-e",            13, 1, 0,    0,    0},
        {"0a-100",                                 5,  1, 0,    0,    0},
        {"0a:1b",                                  5,  1, 0,    0,    0},
        {"0a--1b",                                 5,  1, 0,    0,    0},
    };
    // clang-format on
    for (const KeyCase& c : cases) {
        SCOPED_TRACE(c.text);
        std::string key(c.octets, 0x55);
        auto* bytes = reinterpret_cast<unsigned char*>(key.data());
        EXPECT_EQ(parse_hex_wepkey(TypedText(c.text), bytes, c.octets), c.refused);
        EXPECT_EQ(bytes[0], c.first);
        EXPECT_EQ(bytes[1], c.second);
        EXPECT_EQ(bytes[c.octets - 1], c.last);
    }
}
}  // namespace
