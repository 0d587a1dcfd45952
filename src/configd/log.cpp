#include "configd/log.h"

#include <cstdarg>
#include <cstdio>

#include "configd/system_log.h"

namespace {
LogTarget logTarget = LogTarget::kStderr;

constexpr std::size_t kLongestLine = 512;  // longer ones are cut
}  // namespace

void open_log(LogTarget target)
{
    logTarget = target;
    if (target == LogTarget::kSyslog) openlog("configd", LOG_PID | LOG_NDELAY, LOG_DAEMON);
}

void log_line(int priority, const char* format, ...)
{
    char line[kLongestLine];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    system_log().line(priority, line);

    if (logTarget == LogTarget::kSyslog)
        syslog(priority, "%s", line);
    else
        std::fprintf(stderr, "configd: %s\n", line);
}
