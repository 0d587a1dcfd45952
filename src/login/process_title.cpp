#include "login/process_title.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace {
constexpr std::size_t kTitleSize = 2048;
constexpr std::size_t kTitleExtra = 5;  // " -- " and the NUL

char** arguments;    // null until there is space for a title
std::size_t space;   // bytes from the first argument to the end of the last environment string
char** environment;  // our copy, in one piece with its strings; stays reachable when environ moves on

bool copy_environment()
{
    std::size_t count = 0, bytes = 0;
    for (; environ[count]; ++count) bytes += std::strlen(environ[count]) + 1;

    const std::size_t table = (count + 1) * sizeof(char*);
    auto* copy = static_cast<char**>(std::malloc(table + bytes));
    if (!copy) return false;

    char* text = reinterpret_cast<char*>(copy) + table;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t size = std::strlen(environ[i]) + 1;
        copy[i] = static_cast<char*>(std::memcpy(text, environ[i], size));
        text += size;
    }
    copy[count] = nullptr;
    std::free(std::exchange(environment, copy));  // of an earlier call
    environ = copy;
    return true;
}

// The strings lie end to end as the system has put them; one that does not was set by someone since, and ends the span.
char* end_of_strings(char** strings, char* end)
{
    for (; *strings && *strings == end; ++strings) end += std::strlen(end) + 1;
    return end;
}
}  // namespace

void initproctitle(int argc, char** argv)
{
    if (argc < 1 || !argv[0]) return;
    char* end = end_of_strings(argv, argv[0]);
    end = end_of_strings(environ, end);
    if (!copy_environment()) return;
    arguments = argv;
    space = static_cast<std::size_t>(end - argv[0]);
}

void setproctitle(const char* prefix, const char* text)
{
    if (!arguments || space < 2 || std::strlen(prefix) + std::strlen(text) + kTitleExtra > kTitleSize) return;

    char title[kTitleSize];
    const int formatted = std::snprintf(title, sizeof title, "%s -- %s", prefix, text);
    const std::size_t length = std::min(static_cast<std::size_t>(formatted), space - 2);

    std::memset(arguments[0], 0, space);
    std::memcpy(arguments[0], title, length);
    arguments[1] = nullptr;
}
