#include "values/date_time.h"

#include <array>
#include <cstdlib>
#include <cstring>

#include "console/messages.h"
#include "values/parsers.h"
#include "values/scanners.h"

namespace {
using Fields = std::array<std::uint32_t, 3>;

struct FieldRule {
    char terminator;
    std::uint32_t max, min;
};
// clang-format off
constexpr std::array<FieldRule, 3>
    kDateFields{{{'-', 12, 1}, {'-', 31, 1}, {0, 99, 0}}},
    kTimeFields{{{kAnyTerminator, 23, 0}, {kAnyTerminator, 59, 0}, {kAnyTerminator, 59, 0}}};
// clang-format on

// Reads the fields as long as the text goes on; those it does not reach are left alone.
bool scan_fields(const char* text, char separator, const std::array<FieldRule, 3>& rules, Fields& fields)
{
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (!parse_dec(&text, &fields[i], rules[i].terminator, rules[i].max, rules[i].min)) return false;
        if (*text == separator) ++text;
        if (*text == 0) return true;
    }
    return false;
}

void append_packed_bcd(ParmList& words, const Fields& fields, Word taken)
{
    unsigned char packed[3];
    for (std::size_t i = 0; i < fields.size(); ++i)
        packed[i] = static_cast<unsigned char>(fields[i] / 10 << 4 | fields[i] % 10);
    append_bytes(words, packed, sizeof packed, taken);
}

// Reads the field up to `end` (0: the text's end) and moves the text behind it. False: no such end, or too long.
bool take_number(const char*& text, char end, int& number)
{
    constexpr std::size_t kMostCharacters = 4;
    const char* stop = std::strchr(text, end);
    if (!stop) return false;
    const auto length = static_cast<std::size_t>(stop - text);
    if (length > kMostCharacters) return false;
    char field[kMostCharacters + 1] = {};
    std::memcpy(field, text, length);
    number = static_cast<int>(std::strtol(field, nullptr, 10));
    text = end ? stop + 1 : stop;
    return true;
}
}  // namespace

std::uint32_t CliParseDate(char* text, ParmList& words)
{
    Fields date{};
    if (!scan_fields(text, '-', kDateFields, date) || !IsCorrectDateFmt(date[0], date[1], date[2])) return kInvalidDate;
    append_packed_bcd(words, date, 3);  // one word for each field, though all three lie in the first
    return kOk;
}

std::uint32_t CliParseTime(char* text, ParmList& words)
{
    Fields time{};
    if (!scan_fields(text, ':', kTimeFields, time)) return kInvalidTime;
    append_packed_bcd(words, time, 1);
    return kOk;
}

// Lenient on purpose: nothing is refused, minutes are ignored, and hours beyond 12 are taken as they stand.
std::uint32_t CliParseTimezone(char* text, ParmList& words)
{
    const bool west = *text == '-';
    const char* at = west || *text == '+' ? text + 1 : text;
    std::uint32_t hours;
    parse_dec(&at, &hours, kAnyTerminator, 12, 0);
    append_signed(words, static_cast<std::int32_t>(west ? 0 - hours * 60 : hours * 60));
    return kOk;
}

bool IsCorrectDateFmt(std::uint32_t month, std::uint32_t day, std::uint32_t year)
{
    static constexpr std::uint16_t kDays[2][12] = {
        {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
        {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    };
    return month >= 1 && month <= 12 && day <= kDays[year % 4 == 0][month - 1];
}

int maketm(const char* date, const char* time, std::tm* out)
{
    if (!date || !time) return 1;
    std::tm made{};
    const bool whole = take_number(date, '/', made.tm_year) && take_number(date, '/', made.tm_mon) &&
                       take_number(date, 0, made.tm_mday) && take_number(time, ':', made.tm_hour) &&
                       take_number(time, ':', made.tm_min) && take_number(time, 0, made.tm_sec);
    if (!whole) return 1;
    made.tm_year -= 1900;
    made.tm_mon -= 1;
    *out = made;
    return 0;
}
