#include "configd/log.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "configd/system_log.h"

namespace {
LogTarget logTarget = LogTarget::kStderr;

constexpr std::size_t kLongestLine = 512;  // longer ones are cut
constexpr std::size_t kLongestAsker = 64;

// Its length.
std::size_t begin_line(char* line, const std::string& asker)
{
    if (asker.empty()) return 0;
    const int length = std::snprintf(line, kLongestAsker, "%s: ", asker.c_str());
    return std::min(static_cast<std::size_t>(length), kLongestAsker - 1);
}
}  // namespace

void open_log(LogTarget target)
{
    logTarget = target;
    if (target == LogTarget::kSyslog) openlog("configd", LOG_PID | LOG_NDELAY, LOG_DAEMON);
}

void log_line(int priority, const char* format, ...)
{
    SystemLog& log = system_log();
    char line[kLongestLine];
    const std::size_t used = begin_line(line, log.asker());
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line + used, sizeof line - used, format, arguments);
    va_end(arguments);
    log.line(priority, line);

    // What is about passwords goes where not everybody reads.
    const int facility = log.lines_facility() == Facility::kLogin ? LOG_AUTHPRIV : LOG_DAEMON;
    if (logTarget == LogTarget::kSyslog)
        syslog(facility | priority, "%s", line);
    else
        std::fprintf(stderr, "configd: %s\n", line);
}
