#include "login/access.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include "login/access_file.h"
#include "login/login_values.h"

namespace {
constexpr char kAccessFile[] = "/etc/usertty";
constexpr std::size_t kMostBytes = 65536;  // a longer file is not a list of terminals

int failures;

enum class Reading { whole, absent, failed };

Reading fail(int reason)
{
    errno = reason;
    return Reading::failed;
}

// The bytes of `file` into `text`; the reason of a failure is left in errno.
Reading read_text(int file, char (&text)[kMostBytes], std::size_t& length)
{
    struct stat found;
    if (fstat(file, &found) != 0) return Reading::failed;
    if (!S_ISREG(found.st_mode)) return fail(EINVAL);

    for (length = 0; length < sizeof text;) {
        const ssize_t count = read(file, text + length, sizeof text - length);
        if (count == 0) return Reading::whole;
        if (count < 0) return Reading::failed;
        length += static_cast<std::size_t>(count);
    }
    return fail(EFBIG);
}

Reading read_file(const char* path, char (&text)[kMostBytes], std::size_t& length)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return errno == ENOENT ? Reading::absent : Reading::failed;
    const Reading result = read_text(file, text, length);
    const int reason = errno;
    close(file);
    errno = reason;
    return result;
}

}  // namespace

bool access_file_allows(const char* path, const char* user, const char* tty, const char* host)
{
    static char text[kMostBytes];
    std::size_t length = 0;
    switch (read_file(path, text, length)) {
    case Reading::whole: return terminal_allowed({text, length}, user, tty, host);
    case Reading::absent: return true;
    case Reading::failed: break;
    }
    syslog(LOG_ERR, "%s: %s", path, std::strerror(errno));
    return false;
}

void checktty(const char* user, const char* tty, const passwd*)
{
    if (access_file_allows(kAccessFile, user, tty, hostname ? hostname : "")) return;
    std::fprintf(stderr, "login: %s may not log in on this terminal.\n", user);
    ++failures;
    badlogin(user);
    sleepexit(1);
}

void badlogin(const char* name)
{
    const char* where = hostname ? hostname : ttyName;
    const char* preposition = hostname ? "FROM" : "ON";
    if (failures == 1)
        syslog(LOG_NOTICE, "LOGIN FAILURE %s %s, %s", preposition, where, name);
    else
        syslog(LOG_NOTICE, "%d LOGIN FAILURES %s %s, %s", failures, preposition, where, name);
}

void sleepexit(int status)
{
    sleep(5);
    std::exit(status);
}
