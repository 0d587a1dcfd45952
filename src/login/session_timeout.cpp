#include "login/session_timeout.h"

#include <csignal>
#include <cstddef>
#include <termios.h>
#include <unistd.h>

#include "console/session.h"
#include "console/terminal.h"

namespace {
volatile std::sig_atomic_t attributesKept;  // an alarm left over by our starter must not write attributes never read

// By hand: of what prints numbers nothing may be called from a signal handler.
struct Line {
    char text[64];
    std::size_t length = 0;

    void add(const char* more)
    {
        for (; *more; ++more) text[length++] = *more;
    }
    void add(unsigned number)
    {
        char digits[12];
        std::size_t first = sizeof digits;
        digits[--first] = 0;
        do {
            digits[--first] = static_cast<char>('0' + number % 10);
        } while (number /= 10);
        add(digits + first);
    }
};

void echo_on()
{
    termios attributes;
    if (tcgetattr(STDIN_FILENO, &attributes) != 0) return;
    attributes.c_lflag |= ECHO;
    tcsetattr(STDIN_FILENO, TCSANOW, &attributes);
}

// Calls what a signal handler may call and nothing else.
void timed_out(int)
{
    Line line;
    line.add("Login timed out after ");
    line.add(timeout);
    line.add(" seconds\n");
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, line.text, line.length);
    echo_on();
    if (attributesKept) restore_tty_info();
    _exit(0);
}
}  // namespace

void install_timeout_handler() { std::signal(SIGALRM, timed_out); }

void keep_terminal_attributes()
{
    if (save_tty_info() == 0) attributesKept = 1;
}
