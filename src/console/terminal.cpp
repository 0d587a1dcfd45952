#include "console/terminal.h"

#include <cstdarg>
#include <iterator>
#include <termios.h>
#include <unistd.h>

#include "console/terminal_keys.h"

int ttyRaw;

namespace {
termios savedTty;

// The keys that a session takes away from the line, and what they were.
constexpr int kSessionKeys[] = {VSTOP, VINTR, VQUIT};
bool keysTaken;
cc_t keysDisabled;
cc_t keysFound[std::size(kSessionKeys)];
tcflag_t flowFound;  // IXON as it was: without a stop key Linux takes a NUL for it where the reader is slow

void set_keys(termios& attributes, const cc_t (&keys)[std::size(kSessionKeys)])
{
    for (std::size_t i = 0; i < std::size(kSessionKeys); ++i) attributes.c_cc[kSessionKeys[i]] = keys[i];
}

char outputBuffer[4096];  // two screens
int gathering;            // GatheredOutputs that exist

int flush() { return gathering ? 0 : std::fflush(stdout); }

// After a restore gave them back; nothing is written while they are still ours.
void retake_keys()
{
    termios attributes;
    if (tcgetattr(STDIN_FILENO, &attributes) != 0) return;
    if (attributes.c_cc[VSTOP] == keysDisabled && attributes.c_cc[VINTR] == keysDisabled) return;
    take_keys(attributes, keysDisabled);
    tcsetattr(STDIN_FILENO, TCSANOW, &attributes);
}

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
}  // namespace

int save_tty_info()
{
    termios found;
    const int result = tcgetattr(STDIN_FILENO, &found);
    if (result != 0) return result;  // the attributes kept earlier stay
    if (keysTaken) {
        set_keys(found, keysFound);
        found.c_iflag |= flowFound;
    }
    savedTty = found;
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

void take_keys(termios& attributes, unsigned char disabled)
{
    if (!keysTaken) {
        for (std::size_t i = 0; i < std::size(kSessionKeys); ++i) keysFound[i] = attributes.c_cc[kSessionKeys[i]];
        flowFound = attributes.c_iflag & IXON;
    }
    attributes.c_iflag &= ~static_cast<tcflag_t>(IXON);
    keysTaken = true;
    keysDisabled = disabled;
    for (const int key : kSessionKeys) attributes.c_cc[key] = disabled;
}

int get_char(int)
{
    if (!ttyRaw) {
        save_tty_info();
        echo_off(stdin);
        set_keypress(stdin);
        if (keysTaken) retake_keys();
        ttyRaw = 1;
    }
    if (!keys_wait()) {
        show_output();
        read_keys();
    }
    return take_key();
}

int put_char(int, int c)
{
    std::putchar(static_cast<unsigned char>(c));
    return flush();
}

int prn_msg(int, const char* text)
{
    const int written = std::printf("%s", text);
    flush();
    return written;
}

int Printf(int, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const int written = std::vprintf(format, arguments);
    va_end(arguments);
    flush();
    return written;
}

GatheredOutput::GatheredOutput() { ++gathering; }

GatheredOutput::~GatheredOutput()
{
    --gathering;
    if (!keys_wait()) flush();
}

void show_output() { std::fflush(stdout); }

void buffer_output() { std::setvbuf(stdout, outputBuffer, _IOFBF, sizeof outputBuffer); }

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
