// What one key changes on the screen, gathered and written at once: a slow line gets one write however much moves.
#pragma once

#include <cstddef>

#include "cli/edit_context.h"
#include "console/terminal.h"

class ScreenUpdate {
public:
    void add(char c, int times = 1)
    {
        while (times-- > 0 && used < sizeof text - 1) text[used++] = c;
    }
    void add(const char* characters)
    {
        while (*characters) add(*characters++);
    }
    void add_line(const LineRecord& line, int from, bool echo)
    {
        for (int at = from; at < line.length; ++at) add(echo ? line.text[at] : '*');
    }
    void wipe_back(int characters)  // removes what stands left of the screen's cursor
    {
        while (characters-- > 0) add("\b \b");
    }
    void show(int term)
    {
        text[used] = '\0';
        if (used > 0) prn_msg(term, text);
    }

private:
    char text[4 * kLineCapacity + 1];  // the longest: a line goes back, is wiped, goes back again, and another comes
    std::size_t used = 0;
};
