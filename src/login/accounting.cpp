#include "login/accounting.h"

#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>
#include <utmp.h>
#include <utmpx.h>

#include "login/text.h"

namespace {
constexpr int kTimeLength = 19;  // of a ctime(3) text, before the year

// The id has no room for a NUL and needs none.
void set_id(utmpx& entry, const char* id)
{
    std::memset(entry.ut_id, 0, sizeof entry.ut_id);
    std::memcpy(entry.ut_id, id, strnlen(id, sizeof entry.ut_id));
}

utmpx entry_to_take_over(const LoginEvent& login)
{
    setutxent();
    while (const utmpx* entry = getutxent())
        if (entry->ut_pid == login.pid && entry->ut_type >= INIT_PROCESS && entry->ut_type <= DEAD_PROCESS)
            return *entry;

    utmpx wanted{};
    wanted.ut_type = LOGIN_PROCESS;
    set_id(wanted, login.id);
    xstrncpy(wanted.ut_line, login.line, sizeof wanted.ut_line);  // finds an entry that has no id
    setutxent();
    if (const utmpx* entry = getutxid(&wanted)) return *entry;
    return {};
}

void print_last_login(LastLogin last)
{
    last.line[sizeof last.line - 1] = last.host[sizeof last.host - 1] = 0;
    make_printable(last.line);
    make_printable(last.host);
    const std::time_t time = last.time;
    std::printf("Last login: %.*s ", kTimeLength, std::ctime(&time));
    if (last.host[0])
        std::printf("from %s\n", last.host);
    else
        std::printf("on %s\n", last.line);
    std::fflush(stdout);
}
}  // namespace

void write_utmp(const LoginEvent& login, const char* utmpPath, const char* wtmpPath)
{
    utmpxname(utmpPath);
    utmpx entry = entry_to_take_over(login);
    if (!entry.ut_id[0]) set_id(entry, login.id);
    xstrncpy(entry.ut_user, login.user, sizeof entry.ut_user);
    xstrncpy(entry.ut_line, login.line, sizeof entry.ut_line);
    entry.ut_tv.tv_sec = static_cast<decltype(entry.ut_tv.tv_sec)>(login.time);
    entry.ut_tv.tv_usec = 0;
    entry.ut_type = USER_PROCESS;
    entry.ut_pid = login.pid;
    if (login.host) {
        xstrncpy(entry.ut_host, login.host, sizeof entry.ut_host);
        std::memset(entry.ut_addr_v6, 0, sizeof entry.ut_addr_v6);
        if (login.address[0]) std::memcpy(entry.ut_addr_v6, login.address, 4);
    }

    setutxent();
    pututxline(&entry);
    endutxent();
    updwtmpx(wtmpPath, &entry);
}

void own_session(uid_t user)
{
    const int file = open("/proc/self/loginuid", O_WRONLY | O_CLOEXEC);
    if (file < 0) return;
    dprintf(file, "%u", static_cast<unsigned>(user));
    close(file);
}

void update_lastlog(const LoginEvent& login, uid_t user, bool quiet, const char* path)
{
    const int file = open(path, O_RDWR | O_CLOEXEC);
    if (file < 0) return;
    const off_t place = static_cast<off_t>(user) * static_cast<off_t>(sizeof(LastLogin));

    LastLogin last{};
    if (!quiet && pread(file, &last, sizeof last, place) == static_cast<ssize_t>(sizeof last) && last.time != 0)
        print_last_login(last);

    last = {};
    last.time = static_cast<std::int32_t>(login.time);
    xstrncpy(last.line, login.line, sizeof last.line);
    if (login.host) xstrncpy(last.host, login.host, sizeof last.host);
    [[maybe_unused]] const ssize_t written =
        pwrite(file, &last, sizeof last, place);  // a full disk costs the record only
    close(file);
}
