// The parameter vector: what the parsers made of a command's parameters, in the order they were typed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

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

// A negative number fills the whole word, so that it comes back from any word size as the int it was.
inline void append_signed(ParmList& words, std::int32_t value)
{
    append_word(words, static_cast<Word>(static_cast<std::intptr_t>(value)));
}

// Lays bytes over the memory of the next free words and takes `taken` of them; what the bytes do not reach keeps its
// content. Without that many free words the vector stays as it is.
inline void append_bytes(ParmList& words, const void* bytes, std::size_t size, Word taken)
{
    if (words.count > ParmList::kCapacity || ParmList::kCapacity - words.count < taken) return;
    std::memcpy(&words.value[words.count], bytes, size);
    words.count += taken;
}

// Tests a parameter's text (writable, NUL-ended), appends its value, returns 0; or a message number, the count as it
// was. Never prints.
using Parser = std::uint32_t (*)(char* text, ParmList& words);
