// The parameter vector: what the parsers made of a command's parameters, in the order they were typed.
#pragma once

#include <cstdint>

// Four bytes on the device, and wide enough everywhere for the address of a text.
using Word = std::uintptr_t;

struct ParmList {
    static constexpr Word kCapacity = 20;
    Word value[kCapacity];
    Word count;  // index of the next free word
};

// Appends a word; a full vector stays as it is.
inline void append_word(ParmList& words, Word value)
{
    if (words.count < ParmList::kCapacity) words.value[words.count++] = value;
}

// Tests a parameter's text (writable, NUL-ended), appends its value, returns 0; or a message number, the count as it
// was. Never prints.
using Parser = std::uint32_t (*)(char* text, ParmList& words);
