#include "commands/answers.h"

#include <cstdio>

#include "values/format.h"

const SelectEntry kSingleOrRangeTable[] = {{kSingle, "single"}, {kRange, "range"}, {kNoSelection, nullptr}};

std::uint32_t parse_selection(const char* text, ParmList& words, const SelectEntry* table, Message refusal)
{
    const std::uint32_t value = CliFindSelect(text, table);
    if (value > kLastSelection) return refusal;
    append_word(words, value);
    return kOk;
}

const char* selected_text(std::uint32_t value, const SelectEntry* table)
{
    for (; table->text; ++table)
        if (table->value == value) return table->text;
    return "";
}

std::uint32_t parse_single_or_range(char* text, ParmList& words)
{
    return parse_selection(text, words, kSingleOrRangeTable, kSingleOrRange);
}

const char* address_or_unspecified(std::uint32_t address) { return address ? CliFormatIPv4(address) : kUnspecified; }

const char* ports_text(unsigned first, unsigned last)
{
    static char text[sizeof "65535-65535"];
    if (first == last)
        std::snprintf(text, sizeof text, "%hu", static_cast<unsigned short>(first));
    else
        std::snprintf(text, sizeof text, "%hu-%hu", static_cast<unsigned short>(first),
                      static_cast<unsigned short>(last));
    return text;
}
