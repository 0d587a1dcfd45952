// What the headers of the C++ library call when a check of theirs fails. The library's own functions for it bring 90 kB
// of exceptions and report writing into a program that has no use for them: here such a fault is told, and ends it.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "console/terminal.h"

namespace {
[[noreturn]] void stop()
{
    restore_tty_info();  // whoever comes next gets a line that echoes
    std::abort();
}
}  // namespace

namespace std {
[[noreturn]] void __glibcxx_assert_fail(const char* file, int line, const char* function,
                                        const char* condition) noexcept
{
    std::fprintf(stderr, "%s:%d: %s: %s does not hold\n", file, line, function, condition);
    stop();
}

[[noreturn]] void __throw_out_of_range_fmt(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    stop();
}
}  // namespace std
