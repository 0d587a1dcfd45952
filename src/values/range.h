// Numbers that must lie within a range: one body for all parsers that differ only in their limits and in the message
// that refuses.
#pragma once

#include <cstdint>

#include "console/messages.h"
#include "values/parm_list.h"

struct Range {
    std::uint32_t min, max;
    Message refusal;
};

// Appends a decimal number, nothing behind its digits, within the range compared as signed; or returns the refusal.
std::uint32_t parse_range(const char* text, ParmList& words, Range range);
