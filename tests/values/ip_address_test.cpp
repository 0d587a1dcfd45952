#include "values/ip_address.h"
#include "values/parser_case.h"
#include "values/parsers.h"

namespace {
constexpr std::int32_t ip(std::uint32_t address) { return static_cast<std::int32_t>(address); }

// clang-format off
constexpr ParserCase kCases[] = {
    {"Dotted",          CliParseIPAddress,      "192.168.1.254",       kOk, ip(0xc0a801fe)},
    {"BlankBehind",     CliParseGatewayAddress, "1.2.3.4 ",            kOk, ip(0x01020304)},
    {"LeadingZero",     CliParseDestIP,         "10.0.010.1",          kOk, ip(0x0a000801)},
    {"NotOctal",        CliParseIPAddress,      "10.0.08.1",           kInvalidIPAddress},
    {"DotBehind",       CliParseIPAddress,      "1.2.3.4.",            kInvalidIPAddress},
};
// clang-format on
class AddressParser : public ParserTest {};
TEST_P(AddressParser, AppendsHostOrderOrRefuses) { appends_or_refuses(); }
INSTANTIATE_TEST_SUITE_P(Texts, AddressParser, testing::ValuesIn(kCases), kCaseName);

TEST(ValidIP, TakesSingleHostsOfTheClassesAToC)
{
    for (const std::uint32_t good : {0x0a000001u, 0xac100101u, 0xc0a80101u, 0x0affff00u})
        EXPECT_EQ(ValidIP(good), 0) << std::hex << good;
    for (const std::uint32_t bad : {0u, 0x0a000000u, 0x0affffffu, 0x7f000001u, 0xe0000001u, 0xffffffffu, 0xc0a801ffu})
        EXPECT_EQ(ValidIP(bad), 1) << std::hex << bad;
}

struct HostCase {
    std::uint32_t address, mask;
    int refused;
};
TEST(ValidSingleIP, GoesByTheMask)
{
    // clang-format off
    constexpr HostCase kHosts[] = {
        {0xc0a801ff, 0xffffff00, 1}, {0xc0a801ff, 0xfffffe00, 1}, {0xc0a800ff, 0xfffffe00, 0}, {0xc0a80140, 0xffffffc0, 1},
        {0x0a000001, 0xffffffff, 1}, {0x0a000001, 0xff00ff00, 1}, {0x0a000001, 0,          1}, {0x00000001, 0xff000000, 1},
    };
    // clang-format on
    for (const HostCase& host : kHosts)
        EXPECT_EQ(ValidSingleIP(host.address, host.mask), host.refused) << std::hex << host.address << '/' << host.mask;
}

TEST(Netmask, IsContiguousFromTheTop)
{
    EXPECT_EQ(ValidNetmask(0xffffffff), 0);
    EXPECT_NE(ValidNetmask(0x7fffffff), 0);
    EXPECT_NE(ValidNetmask(0xff00ff00), 0);
    EXPECT_EQ(ONEbitcountofNetmask(0xffffff00), 24);
    EXPECT_EQ(ONEbitcountofNetmask(0xff00ff00), -1);
    EXPECT_EQ(ONEbitcountofNetmask(0xffffffff), 0);
}
}  // namespace
