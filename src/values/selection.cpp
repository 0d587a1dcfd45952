#include "values/selection.h"

#include <algorithm>
#include <cstring>
#include <strings.h>

#include "console/messages.h"
#include "values/parsers.h"

namespace {
constexpr SelectEntry kEnd{kNoSelection, nullptr};

std::size_t common_prefix(const char* a, const char* b)
{
    std::size_t length = 0;
    while (a[length] && a[length] == b[length]) ++length;
    return length;
}

// Characters that tell any two entries apart.
std::size_t least_length(const SelectEntry* table)
{
    std::size_t least = 1;
    for (const SelectEntry* one = table; one->text; ++one)
        for (const SelectEntry* other = one + 1; other->text; ++other)
            least = std::max(least, common_prefix(one->text, other->text) + 1);
    return least;
}

std::uint32_t parse_selection(const char* text, ParmList& words, const SelectEntry* table, Message refusal)
{
    const std::uint32_t value = CliFindSelect(text, table);
    if (value > kLastSelection) return refusal;
    append_word(words, value);
    return kOk;
}
}  // namespace

// clang-format off
const SelectEntry MACFilterMode[]   = {{0, "disable"}, {1, "grant"}, {2, "deny"}, kEnd};
const SelectEntry OperationalMode[] = {{1, "accesspoint"}, {2, "wds"}, {3, "repeater"}, kEnd};
const SelectEntry SetPortName6[]    = {{1, "radio1"}, {2, "radio2"}, {3, "radio3"}, {4, "radio4"}, {5, "radio5"},
                                       {6, "radio6"}, kEnd};
const SelectEntry SetPortName8[]    = {{1, "radio1"}, {2, "radio2"}, {3, "radio3"}, {4, "radio4"}, {5, "radio5"},
                                       {6, "radio6"}, {7, "lan100"}, {8, "lan200"}, kEnd};

std::uint32_t CliParseMACFilterMode  (char* t, ParmList& w) { return parse_selection(t, w, MACFilterMode, kMacFilterMode); }
std::uint32_t CliParseOperationalMode(char* t, ParmList& w) { return parse_selection(t, w, OperationalMode, kOperationalMode); }
std::uint32_t CliParseRadioName      (char* t, ParmList& w) { return parse_selection(t, w, SetPortName6, kRadioName); }
std::uint32_t CliParseRadioOrLanName (char* t, ParmList& w) { return parse_selection(t, w, SetPortName8, kRadioOrLanName); }
// clang-format on

std::uint32_t CliFindSelect(const char* text, const SelectEntry* table)
{
    while (*text == ' ') ++text;
    const std::size_t length = std::strlen(text);
    if (length < least_length(table)) return kSelectionTooShort;
    while (table->text && strncasecmp(text, table->text, length) != 0) ++table;
    return table->value;
}

std::uint32_t CliLookupValue(std::uint32_t key, const std::uint32_t* keys, const std::uint32_t* values,
                             std::size_t count)
{
    const std::uint32_t* found = std::find(keys, keys + count, key);
    return found == keys + count ? 0 : values[found - keys];
}
