// The small text routines: formatters, names, form texts.
#include <gtest/gtest.h>
#include <string>

#include "values/form_text.h"
#include "values/format.h"
#include "values/interface_names.h"
#include "values/log_facility.h"

namespace {
TEST(CliFormatIPv4, TakesTheMostSignificantByteFirst)
{
    EXPECT_STREQ(CliFormatIPv4(0xc0a80101), "192.168.1.1");
    EXPECT_STREQ(CliFormatIPv4(0xffffffff), "255.255.255.255");
}

TEST(InterfaceNames, AreEmptyBeyondTheDevice)
{
    EXPECT_STREQ(GetLanIfName(4), "eth4");
    EXPECT_STREQ(GetLanIfName(5), "");
    EXPECT_STREQ(GetWLanIfName(5), "wlan5");
    EXPECT_STREQ(GetWLanIfName(6), "");
    EXPECT_STREQ(GetWanIfName(0), "eth1");
    EXPECT_STREQ(GetWanIfName(4), "");
    EXPECT_STREQ(GetWanIfName(static_cast<unsigned>(-1)), "");
    EXPECT_STREQ(GetPortNameFromInterface("eth1"), "wan");
    EXPECT_STREQ(GetPortNameFromInterface("br0"), "br0");
}

TEST(LogFacility, IsABitByItsPlace)
{
    EXPECT_EQ(logNameToFacility("system"), 0x80000008u);
    EXPECT_EQ(logNameToFacility("console"), 0x80000010u);
    EXPECT_EQ(logNameToFacility("rip"), 0x88000000u);
    EXPECT_EQ(logNameToFacility("Rip"), 0u);
    EXPECT_EQ(logNameToFacility(""), 0u);
}

struct FormCase {
    const char* sent;
    const char* text;
};
TEST(FormText, IsDecoded)
{
    // clang-format off
    for (const FormCase& c : {FormCase{"a%20b+c", "a b c"}, {"100%", "100%"}, {"%4", "%4"}, {"%4g%41", "%4gA"},
                              {"%%41", "%A"}, {"%ff", "\xff"}, {"one\r\ntwo", "one"}, {"one\ntwo\rthree", "one\ntwo"},
                              {"one\ntwo", "one"}, {"", ""}}) {
        // clang-format on
        std::string sent = c.sent;
        transCGITexttoString(sent.data(), sent.data());
        EXPECT_STREQ(sent.c_str(), c.text) << c.sent;
    }
}
}  // namespace
