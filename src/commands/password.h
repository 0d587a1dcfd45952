// The console password. The configuration service keeps and compares it; here it is only typed, handed over and
// forgotten.
#pragma once

#include <cstddef>
#include <cstdint>

#include "console/session.h"

inline constexpr std::size_t kPasswordSize = 16;  // fifteen characters and the NUL

// What the change-password dialogue has been told so far; empty outside it.
extern char g_chPWD[32];
extern char g_chNewPWD[32];

// 1 if the service accepts the password; 0 if it does not or cannot be asked.
int check_password(int term, const char* text);
int CheckPwd(int term, const char* text);

// One step of the change-password dialogue. None of its answers is shown.
void CliChangePassword(ActionBlock& call, int term);

// Wipes what a dialogue has been told; for a dialogue that ends before its last question.
void forget_passwords();

// 1 for an answer of up to fifteen characters, the empty one included, with its checksum in `err`; else 0 with
// kPasswordLength there.
int parse_passwd(const char* text, std::uint32_t* err);
int parse_passwd_core(const char* text, std::uint32_t* err);

// CRC-32 with the polynomial of IEEE 802.3, most significant bit first, from all ones, not inverted at the end.
std::uint32_t encrypt_passwd(const char* text);
std::uint32_t calccrc08(signed char byte, std::uint32_t crc);
