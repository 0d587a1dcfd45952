// What the service reports: syslog(3), or the error stream for one who watches. Each line goes to the system log too,
// and while a request is carried out it begins with who asked. A secret never goes here.
#pragma once

#include <syslog.h>

enum class LogTarget { kSyslog, kStderr };

void open_log(LogTarget target);

// `priority`: LOG_ERR, LOG_WARNING, LOG_NOTICE, LOG_INFO. One line, without its newline.
[[gnu::format(printf, 2, 3)]] void log_line(int priority, const char* format, ...);
