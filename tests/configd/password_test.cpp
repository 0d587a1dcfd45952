#include <gtest/gtest.h>

#include "configd/password.h"

namespace {
TEST(Password, TheFactoryOneCountsWhileNoneIsSet)
{
    EXPECT_TRUE(password_matches("", "admin"));
    for (const char* wrong : {"", "admi", "admin1", "Admin", "admin\x01"})
        EXPECT_FALSE(password_matches("", wrong)) << wrong;
}

TEST(Password, AHashIsSaltedAndMatchesItsPasswordOnly)
{
    const std::string hash = hash_password("123456789012345"), again = hash_password("123456789012345");
    EXPECT_EQ(hash.substr(0, 3), "$y$");
    EXPECT_NE(hash, again);
    EXPECT_LT(hash.size(), 128u);  // the room that the setting has
    EXPECT_TRUE(is_password_hash(hash.c_str()));
    EXPECT_TRUE(password_matches(hash.c_str(), "123456789012345"));
    for (const char* wrong : {"", "12345678901234", "1234567890123456", "admin"})
        EXPECT_FALSE(password_matches(hash.c_str(), wrong)) << wrong;
}

TEST(Password, NothingMatchesADamagedHash)
{
    for (const char* damaged : {"*0", "*1", "x", "$y$", "$y$j7T$short", "s3cret"}) {
        EXPECT_FALSE(password_matches(damaged, "s3cret")) << damaged;
        EXPECT_FALSE(password_matches(damaged, damaged)) << damaged;
    }
    EXPECT_FALSE(is_password_hash("s3cret"));
    EXPECT_FALSE(is_password_hash("*0"));
}
}  // namespace
