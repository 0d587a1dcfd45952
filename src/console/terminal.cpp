#include "console/terminal.h"

#include <cstdarg>
#include <termios.h>
#include <unistd.h>

int ttyRaw;

namespace
{
termios savedTty;

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
}  // namespace

int save_tty_info()
{
    termios found;
    const int result = tcgetattr(STDIN_FILENO, &found);
    if (result == 0) savedTty = found;  // a failed read leaves the attributes kept earlier
    return result;
}

int restore_tty_info()
{
    ttyRaw = 0;
    return tcsetattr(STDIN_FILENO, TCSANOW, &savedTty);
}

int echo_off(std::FILE* stream)
{
    termios attributes;
    if (const int result = tcgetattr(fileno(stream), &attributes); result != 0) return result;
    attributes.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    return tcsetattr(fileno(stream), TCSANOW, &attributes);
}

int set_keypress(std::FILE* stream)
{
    termios attributes;
    if (const int result = tcgetattr(fileno(stream), &attributes); result != 0) return result;
    attributes.c_lflag &= ~static_cast<tcflag_t>(ICANON);
    attributes.c_cc[VTIME] = 0;
    attributes.c_cc[VMIN] = 1;
    return tcsetattr(fileno(stream), TCSANOW, &attributes);
}

int get_char(int)
{
    if (!ttyRaw) {
        save_tty_info();
        echo_off(stdin);
        set_keypress(stdin);
        ttyRaw = 1;
    }
    return std::getc(stdin);
}

int put_char(int, int c)
{
    std::putchar(static_cast<unsigned char>(c));
    return std::fflush(stdout);
}

int prn_msg(int, const char* text)
{
    const int written = std::printf("%s", text);
    std::fflush(stdout);
    return written;
}

int Printf(int, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const int written = std::vprintf(format, arguments);
    va_end(arguments);
    std::fflush(stdout);
    return written;
}

char* strset(char* s, int c)
{
    for (char* p = s; *p; ++p) *p = static_cast<char>(c);
    return s;
}

char* strnset(char* s, int c, unsigned n)
{
    for (char* p = s; *p && n > 0; ++p, --n) *p = static_cast<char>(c);
    return s;
}

int strnicmp(const char* a, const char* b, unsigned n)
{
    for (; n > 0; --n, ++a, ++b) {
        const int difference = upper(*a) - upper(*b);
        if (difference != 0 || *a == 0) return difference;
    }
    return 0;
}
