// A line of output, put together first and written at once. What it has no room for is cut.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "console/terminal.h"

class TextLine {
public:
    // Adds a text and blanks behind it, `width` characters together unless the text is longer.
    void add(const char* text, std::size_t width = 0)
    {
        const std::size_t length = std::min(std::strlen(text), kSize - 1 - used);
        const std::size_t filled = std::min(std::max(length, width), kSize - 1 - used);
        std::memcpy(characters + used, text, length);
        std::memset(characters + used + length, ' ', filled - length);
        used += filled;
    }
    // Writes what was added and begins again.
    void write(int term)
    {
        characters[used] = '\0';
        if (used > 0) prn_msg(term, characters);
        used = 0;
    }

private:
    static constexpr std::size_t kSize = 256;  // three times a screen's width
    char characters[kSize];
    std::size_t used = 0;
};
