#include "values/form_text.h"

#include <cstring>

#include "values/scanners.h"

int filterPercentSign(const char* source, char* destination)
{
    while (*source) {
        if (*source == '%' && isHex(source[1]) && isHex(source[2])) {
            *destination++ = static_cast<char>(TRANS(source[1], source[2]));
            source += 3;
        } else {
            *destination++ = *source == '+' ? ' ' : *source;
            ++source;
        }
    }
    *destination = 0;
    return 0;
}

int transCGITexttoString(char* source, char* destination)
{
    char* lineEnd = std::strchr(source, '\r');
    if (!lineEnd) lineEnd = std::strchr(source, '\n');
    if (lineEnd) *lineEnd = 0;
    return filterPercentSign(source, destination);
}
