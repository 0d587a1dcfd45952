// Selections: a typed text stands for one of a few values, its case ignored and cut short as far as it stays unique.
#pragma once

#include <cstddef>
#include <cstdint>

struct SelectEntry {
    std::uint32_t value;
    const char* text;  // null in the end entry, whose value is kNoSelection
};

// Anything above kLastSelection is a failure.
inline constexpr std::uint32_t kNoSelection = 0xffffffff, kSelectionTooShort = 0xfffffffe, kLastSelection = 0xfffffffd;

extern const SelectEntry MACFilterMode[], OperationalMode[], SetPortName6[], SetPortName8[];

// The value of the first entry that the text, leading blanks aside, begins. The text must be long enough to tell any
// two entries of the table apart, else kSelectionTooShort; a text longer than an entry is not that entry.
std::uint32_t CliFindSelect(const char* text, const SelectEntry* table);

// values[i] of the first i below `count` with keys[i] == key, or 0.
std::uint32_t CliLookupValue(std::uint32_t key, const std::uint32_t* keys, const std::uint32_t* values,
                             std::size_t count);
