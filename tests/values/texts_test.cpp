// The small text routines: formatters, names, form texts.
#include <gtest/gtest.h>
#include <string>

#include "values/form_text.h"
#include "values/log_facility.h"

namespace {

TEST(LogFacility, IsABitByItsPlace)
{
    EXPECT_EQ(logNameToFacility("system"), 0x80000008u);
    EXPECT_EQ(logNameToFacility("rip"), 0x88000000u);
    EXPECT_EQ(logNameToFacility("Rip"), 0u);
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
