#include "login/text.h"

#include <cstring>

void xstrncpy(char* dst, const char* src, std::size_t n)
{
    const std::size_t used = strnlen(src, n - 1);
    std::memcpy(dst, src, used);
    std::memset(dst + used, 0, n - used);
}

void make_printable(char* text)
{
    for (; *text; ++text)
        if (*text < ' ' || *text > '~') *text = '?';
}
