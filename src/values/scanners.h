// The scanners under every parser: numbers, words and addresses out of a text, and the character classes they go by.
// Numbers are accumulated in 32 bits and wrap when they are longer. A sign is never accepted.
#pragma once

#include <cstdint>

inline constexpr char kAnyTerminator = 127;  // whatever follows the digits is left to the caller

// Reads decimal digits. True when there was at least one, `terminator` follows them (0: the text ends there) and
// min <= value <= max, compared as signed numbers unless `unsignedCompare`. In every case `*text` is moved to the first
// character that is no digit and `*value` is stored.
bool parse_dec_int(const char** text, std::uint32_t* value, char terminator, std::uint32_t max, std::uint32_t min,
                   bool unsignedCompare);
bool parse_dec(const char** text, std::uint32_t* value, char terminator, std::uint32_t max, std::uint32_t min);

// The same without terminator and range: false only when no digit stands first.
bool parse_num(const char** text, std::uint32_t* value);

// Hexadecimal digits of either case, one to eight of them.
bool parse_hex(const char** text, std::uint32_t* value, char terminator);

// A whole text as a hexadecimal number, "0x" before it or not. 0 or kHexSyntax.
std::uint32_t word_hex(const char* text, std::uint32_t* value);

// A dotted quad, blanks behind it or not, as a host-order number. A refusal stores kInvalidIPAddress in `error` and
// leaves the address alone; success stores 0 there.
bool word_ip(std::uint32_t* address, const char* text, std::uint32_t* error);

// The text itself when it is one to 2 * bytes hexadecimal digits and nothing else, or null.
const char* parse_hex_str(const char* text, unsigned bytes);

// Copy with the case changed, into the source's length plus one byte; both may be the same text.
void StrToLower(const char* source, char* destination);
void StrToUpper(const char* source, char* destination);

bool isHex(char c);
bool isDec(char c);
bool isPrint(int c);                          // 32 to 126
int charToInt(char c);                        // value of a hexadecimal digit, or -1
unsigned char TRANS(char high, char low);     // the byte of two hexadecimal digits
void fillHex(char* out, unsigned char byte);  // two upper-case digits, no NUL
