#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "values/wep_key.h"

namespace {
template <std::size_t Size> std::string hex(const unsigned char (&bytes)[Size])
{
    std::string text;
    for (const unsigned char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

struct Case {
    const char* passphrase;
    const char* keys64;
    const char* key128;
};
// clang-format off
constexpr Case kCases[] = {
    {"",             "2627f6859715ad1dd294ddc476193931f1adb558", "3b5d3c7d207e37dceeedd301e3"},
    {"home network", "bd43377653200038f9aa2b97799373f4fe69fe70", "f8b9f66fd62b14f9cedf774eff"},
    {"caf\xe9",      "fac53ff554e1af91f9c5c259dab679dd99d9328e", "6b15039bab4f3f2d512c73e17d"},
};
// clang-format on
TEST(WepKeyGeneration, DerivesTheKeysOfOtherMakers)
{
    for (const Case& c : kCases) {
        unsigned char keys[kWepKeys * kWep64KeySize], key[kWep128KeySize];
        wep_keygen64(c.passphrase, keys);
        wep_keygen128(c.passphrase, key);
        EXPECT_EQ(hex(keys), c.keys64) << c.passphrase;
        EXPECT_EQ(hex(key), c.key128) << c.passphrase;
    }
}
}  // namespace
