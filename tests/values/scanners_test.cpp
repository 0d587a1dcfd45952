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

struct HexCase {
    const char* text;
    std::uint32_t message, value;
};
TEST(WordHex, TakesOneToEightDigits)
{
    for (const HexCase& c : {HexCase{"0xBEEF", kOk, 0xbeef},
                             {"0", kOk, 0},
                             {"0x", kHexSyntax, 0},
                             {"0X1f", kHexSyntax, 0},
                             {"1g", kHexSyntax, 1},
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
}
}  // namespace
