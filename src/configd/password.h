// The console password as a salted crypt(3) hash. While nothing was set, the factory password is in force.
#pragma once

#include <string>
#include <string_view>

inline constexpr std::string_view kFactoryPassword = "admin";
inline constexpr std::size_t kLongestPassword = 15;

// `hash` empty: the factory password. The time it takes does not tell how much of `typed` was right.
bool password_matches(const char* hash, std::string_view typed);

// Empty when the system could not do it.
std::string hash_password(std::string_view password);

// A text that password_matches can work with.
bool is_password_hash(const char* hash);
