#include "values/scanners.h"

#include <cctype>
#include <cstddef>

#include "console/messages.h"

namespace {
bool in_range(std::uint32_t value, std::uint32_t min, std::uint32_t max, bool unsignedCompare)
{
    if (unsignedCompare) return min <= value && value <= max;
    const auto number = static_cast<std::int32_t>(value);
    return static_cast<std::int32_t>(min) <= number && number <= static_cast<std::int32_t>(max);
}

bool ended_by(const char* at, char terminator) { return terminator == kAnyTerminator || *at == terminator; }
}  // namespace

bool isDec(char c) { return c >= '0' && c <= '9'; }
bool isHex(char c) { return charToInt(c) >= 0; }
bool isPrint(int c) { return c >= 32 && c < 127; }

int charToInt(char c)
{
    if (isDec(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

unsigned char TRANS(char high, char low)
{
    const auto upper = static_cast<unsigned>(charToInt(high)) & 15;
    const auto lower = static_cast<unsigned>(charToInt(low)) & 15;
    return static_cast<unsigned char>(upper << 4 | lower);
}

void fillHex(char* out, unsigned char byte)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    out[0] = kDigits[byte >> 4];
    out[1] = kDigits[byte & 15];
}

bool parse_num(const char** text, std::uint32_t* value)
{
    const char* at = *text;
    std::uint32_t number = 0;
    for (; isDec(*at); ++at) number = number * 10 + static_cast<std::uint32_t>(*at - '0');
    const bool any = at != *text;
    *text = at;
    *value = number;
    return any;
}

bool parse_dec_int(const char** text, std::uint32_t* value, char terminator, std::uint32_t max, std::uint32_t min,
                   bool unsignedCompare)
{
    return parse_num(text, value) && ended_by(*text, terminator) && in_range(*value, min, max, unsignedCompare);
}

bool parse_dec(const char** text, std::uint32_t* value, char terminator, std::uint32_t max, std::uint32_t min)
{
    return parse_dec_int(text, value, terminator, max, min, false);
}

bool parse_hex(const char** text, std::uint32_t* value, char terminator)
{
    constexpr std::ptrdiff_t kMostDigits = 8;
    const char* at = *text;
    std::uint32_t number = 0;
    for (; isHex(*at); ++at) number = number << 4 | static_cast<std::uint32_t>(charToInt(*at));
    const std::ptrdiff_t digits = at - *text;
    *text = at;
    *value = number;
    return digits >= 1 && digits <= kMostDigits && ended_by(at, terminator);
}

std::uint32_t word_hex(const char* text, std::uint32_t* value)
{
    if (text[0] == '0' && text[1] == 'x') text += 2;
    return parse_hex(&text, value, 0) ? kOk : kHexSyntax;
}

bool word_ip(std::uint32_t* address, const char* text, std::uint32_t* error)
{
    std::uint32_t collected = 0;
    *error = kInvalidIPAddress;
    for (int part = 1; part <= 4; ++part) {
        std::uint32_t number;
        if (!parse_num(&text, &number) || number > 255) return false;
        collected = collected << 8 | number;
        if (part < 4 && *text++ != '.') return false;
    }
    while (*text == ' ') ++text;
    if (*text) return false;
    *address = collected;
    *error = kOk;
    return true;
}

const char* parse_hex_str(const char* text, unsigned bytes)
{
    const std::size_t most = std::size_t{2} * bytes;
    std::size_t digits = 0;
    while (digits < most && isHex(text[digits])) ++digits;
    return digits > 0 && text[digits] == 0 ? text : nullptr;
}

void StrToLower(const char* source, char* destination)
{
    for (; *source; ++source) *destination++ = static_cast<char>(std::tolower(static_cast<unsigned char>(*source)));
    *destination = 0;
}

void StrToUpper(const char* source, char* destination)
{
    for (; *source; ++source) *destination++ = static_cast<char>(std::toupper(static_cast<unsigned char>(*source)));
    *destination = 0;
}
