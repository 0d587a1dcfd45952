#include "login/environment.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr std::size_t kPathSize = 4096;

// "first/second" into `path`; false when it does not fit.
bool join(char (&path)[kPathSize], const char* first, const char* second)
{
    const int length = std::snprintf(path, sizeof path, "%s/%s", first, second);
    return length >= 0 && static_cast<std::size_t>(length) < sizeof path;
}
}  // namespace

void set_environment(const passwd& user, const char* name, bool keep)
{
    const char* terminal = std::getenv("TERM");
    char* term = strdup(terminal ? terminal : "dumb");  // outlives the emptying
    if (!keep) clearenv();

    setenv("HOME", user.pw_dir, 0);
    setenv("PATH",
           user.pw_uid ? "/usr/local/bin:/bin:/usr/bin"
                       : "/usr/local/sbin:/usr/local/bin:/sbin:/bin:/usr/sbin:/usr/bin",
           1);
    setenv("SHELL", user.pw_shell, 1);
    setenv("TERM", term ? term : "dumb", 1);
    if (char mail[kPathSize]; join(mail, "/var/mail", name)) setenv("MAIL", mail, 0);
    setenv("LOGNAME", name, 1);
    std::free(term);
}

bool wants_quiet_login(const passwd& user)
{
    char path[kPathSize];
    if (!join(path, user.pw_dir, ".hushlogin")) return false;

    const uid_t uid = geteuid();
    const gid_t gid = getegid();
    // Whoever may not take the user's ids looks with the own ones.
    [[maybe_unused]] int ignored = setegid(user.pw_gid);
    ignored = seteuid(user.pw_uid);
    const bool readable = faccessat(AT_FDCWD, path, R_OK, AT_EACCESS) == 0;
    ignored = seteuid(uid);
    ignored = setegid(gid);
    return readable;
}
