#include <cstring>
#include <getopt.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "login/login_values.h"
#include "login/options.h"

namespace {
struct Case {
    const char* name;
    std::vector<std::string> arguments;
    bool superUser;
    OptionFault fault;
    bool keepEnvironment, authenticated;
    const char* host;
    const char* lastArgument;  // as it stands afterwards
};
const Case kCases[] = {
    {"NameIsBlanked", {"-p", "secret"}, false, OptionFault::none, true, false, nullptr, "      "},
    {"Together", {"-fp", "root"}, false, OptionFault::none, true, true, nullptr, "    "},
    {"HostNotByAnOrdinaryUser", {"-h", "remote"}, false, OptionFault::superUserOnly, false, false, nullptr, "remote"},
    {"HostMissing", {"-h"}, true, OptionFault::usage, false, false, nullptr, "-h"},
    {"UnknownOption", {"-x"}, true, OptionFault::usage, false, false, nullptr, "-x"},
    {"NameThatLooksLikeAnOption", {"--", "-froot"}, true, OptionFault::none, false, false, nullptr, "      "},
};
class ParseOptions : public testing::TestWithParam<Case> {};
TEST_P(ParseOptions, ReadsThemAndHidesTheName)
{
    std::vector<std::string> texts = GetParam().arguments;
    texts.insert(texts.begin(), "login");
    std::vector<char*> argv;
    for (auto& text : texts) argv.push_back(text.data());
    argv.push_back(nullptr);
    char* last = argv[texts.size() - 1];

    optind = 0;  // a fresh scan
    Options options;
    EXPECT_EQ(parse_options(static_cast<int>(texts.size()), argv.data(), GetParam().superUser, options),
              GetParam().fault);
    EXPECT_EQ(options.keepEnvironment, GetParam().keepEnvironment);
    EXPECT_EQ(options.authenticated, GetParam().authenticated);
    EXPECT_STREQ(options.host, GetParam().host);
    EXPECT_STREQ(last, GetParam().lastArgument);
}
INSTANTIATE_TEST_SUITE_P(Lines, ParseOptions, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

TEST(RemoteHost, IsKeptWithItsAddress)
{
    const LocalHost local{"ap.lan.example", ".lan.example"};
    set_remote_host("192.0.2.7", local);
    EXPECT_STREQ(hostname, "192.0.2.7");
    const unsigned char expected[4] = {192, 0, 2, 7};
    EXPECT_EQ(std::memcmp(hostaddress, expected, sizeof expected), 0);

    for (const auto& [given, kept] : {std::pair{"pc.lan.example", "pc"},
                                      {"pc.LAN.example", "pc"},
                                      {".lan.example", ".lan.example"},
                                      {"pc.wlan.example", "pc.wlan.example"}}) {
        set_remote_host(given, local);
        EXPECT_STREQ(hostname, kept) << "the own domain goes without saying";
    }
    set_remote_host("\x1b]0;x\a .lan.example", local);
    EXPECT_STREQ(hostname, "?]0;x? ") << "nothing in it may command a terminal";
    EXPECT_EQ(hostaddress[0], 0);
}
}  // namespace
