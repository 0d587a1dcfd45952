// The table behind an answer: whole entries of one size, whatever the answer claims about them.
#pragma once

#include <cstddef>

#include "service/record.h"

class AttachedTable {
public:
    // `response`: the response memory as the IPC client library gave it, `memory` bytes of it (record and table).
    // Yields whole entries only; a length of 0, one that is no multiple of the entry size, or a position outside
    // the response gives the entries that are really there, none if need be.
    AttachedTable(void* response, std::size_t memory, std::size_t entrySize);

    std::size_t size() const { return count_; }
    unsigned char* operator[](std::size_t index) const { return first_ + index * entrySize_; }

    struct Iterator {
        unsigned char* entry;
        std::size_t step;
        unsigned char* operator*() const { return entry; }
        Iterator& operator++()
        {
            entry += step;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return entry != other.entry; }
    };
    Iterator begin() const { return {first_, entrySize_}; }
    Iterator end() const { return {first_ + count_ * entrySize_, entrySize_}; }

private:
    unsigned char* first_ = nullptr;
    std::size_t count_ = 0;
    std::size_t entrySize_;
};
