#include <gtest/gtest.h>

#include "console/messages.h"
#include "values/scanners.h"

namespace {
TEST(ParseDecInt, StoresWhereItStoppedAlsoOnFailure)
{
    const char* text = "70000-";
    std::uint32_t value = 1;
    EXPECT_FALSE(parse_dec_int(&text, &value, '-', 65535, 1, true));
    EXPECT_EQ(value, 70000u);
    EXPECT_STREQ(text, "-");
    EXPECT_FALSE(parse_dec_int(&text, &value, kAnyTerminator, 65535, 0, true));
    EXPECT_EQ(value, 0u);
}

TEST(ParseDecInt, ComparesAsAskedFor)
{
    std::uint32_t value;
    const char* text = "4294967295";
    EXPECT_TRUE(parse_dec_int(&text, &value, 0, 0xffffffff, 1, true));
    text = "4294967295";
    EXPECT_FALSE(parse_dec_int(&text, &value, 0, 0xffffffff, 1, false));
}

struct HexCase {
    const char* text;
    std::uint32_t message, value;
};
TEST(WordHex, TakesOneToEightDigits)
{
    for (const HexCase& c : {HexCase{"0xBEEF", kOk, 0xbeef},
                             {"deadbeef", kOk, 0xdeadbeef},
                             {"0", kOk, 0},
                             {"0x", kHexSyntax, 0},
                             {"0X1f", kHexSyntax, 0},
                             {"1g", kHexSyntax, 1},
                             {"100000000", kHexSyntax, 0},
                             {"", kHexSyntax, 0}}) {
        std::uint32_t value = 9;
        EXPECT_EQ(word_hex(c.text, &value), c.message) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
}

TEST(Characters, AboveAsciiBelongToNoClass)
{
    for (int c = 128; c < 256; ++c) {
        EXPECT_FALSE(isHex(static_cast<char>(c)) || isDec(static_cast<char>(c)) || isPrint(c)) << c;
    }
    EXPECT_TRUE(isPrint(' ') && isPrint('~'));
    EXPECT_FALSE(isPrint(127) || isPrint(31) || isPrint(-1));
    EXPECT_EQ(TRANS('a', 'F'), 0xaf);
}
}  // namespace
