#include <gtest/gtest.h>
#include <string>

#include "service/record.h"

namespace {
using Entry = Within<8>;

TEST(TextField, IsCutEndedAndLeavesNothingOldBehindIt)
{
    constexpr Entry::TextField kText{1, 6};
    unsigned char bytes[8];
    std::memset(bytes, '~', sizeof bytes);

    kText.set(bytes, "lengthy");
    EXPECT_STREQ(kText.get(bytes), "lengt");
    kText.set(bytes, "ab");
    EXPECT_EQ(std::string(reinterpret_cast<char*>(bytes), sizeof bytes), std::string("~ab\0\0\0\0~", 8));
}

TEST(TextField, WithoutItsNulIsReadWithinItsWidth)
{
    constexpr Entry::TextField kText{2, 6};
    unsigned char bytes[8];
    std::memset(bytes, 'x', sizeof bytes);

    EXPECT_EQ(kText.length(bytes), 6u);
    EXPECT_STREQ(kText.get(bytes), "xxxxx");
    EXPECT_EQ(bytes[1], 'x');
}

}  // namespace
