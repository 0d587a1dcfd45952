#include "login/terminal_line.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <syslog.h>
#include <termios.h>
#include <unistd.h>

#include "login/login_values.h"

namespace {
constexpr char kDevices[] = "/dev/", kTerminals[] = "/dev/tty";
constexpr std::size_t kDevicesLength = sizeof kDevices - 1, kTerminalsLength = sizeof kTerminals - 1;
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr unsigned kMostDescriptors = 65536;  // looked at where they cannot be closed in one call

bool begins_with(const char* text, const char* prefix) { return std::strncmp(text, prefix, std::strlen(prefix)) == 0; }

[[noreturn]] void give_up()
{
    sleep(1);  // whoever starts us anew is not to do so in a tight loop
    std::exit(1);
}

// Not every line lets its owner and mode be changed, nor may every user: the line serves without.
void own_terminal(uid_t uid, gid_t gid)
{
    if (fchown(STDIN_FILENO, uid, gid) != 0 || fchmod(STDIN_FILENO, kOwnerOnly) != 0) return;
}

// A process group of our own. Started by a script we share the script's group; ours must then become the foreground
// group of the line, or the first use of the line would stop us.
void lead_a_process_group()
{
    const pid_t before = getpgrp();
    const bool foreground = tcgetpgrp(STDIN_FILENO) == before;
    setpgrp();
    if (!foreground || getpgrp() == before) return;

    const auto handler = std::signal(SIGTTOU, SIG_IGN);
    tcsetpgrp(STDIN_FILENO, getpgrp());
    std::signal(SIGTTOU, handler);
}

void reopen(const char* path)
{
    const int line = open(path, O_RDWR | O_NONBLOCK);  // a line without carrier must not hold us up
    if (line < 0) {
        syslog(LOG_ERR, "FATAL: can't reopen tty: %s", std::strerror(errno));
        give_up();
    }
    fcntl(line, F_SETFL, fcntl(line, F_GETFL) & ~O_NONBLOCK);

    for (int lower = 0; lower < line; ++lower) close(lower);
    for (int standard = STDIN_FILENO; standard <= STDERR_FILENO; ++standard)
        if (standard != line) dup2(line, standard);
    if (line > STDERR_FILENO) close(line);
}
}  // namespace

void name_terminal(const char* path)
{
    ttyName = begins_with(path, kDevices) ? path + kDevicesLength : path;
    ttyId = begins_with(path, kTerminals) ? path + kTerminalsLength : path + std::strcspn(path, "0123456789");
}

bool is_good_terminal(const char* path)
{
    struct stat found;
    if (lstat(path, &found) != 0 || !S_ISCHR(found.st_mode)) return false;
    return found.st_nlink == 1 || begins_with(path, kDevices);
}

const char* find_terminal()
{
    const char* path = ttyname(STDIN_FILENO);
    if (!path || !*path) path = "/dev/tty??";
    if (!is_good_terminal(path)) {
        syslog(LOG_ERR, "FATAL: bad tty");
        give_up();
    }
    name_terminal(path);
    return path;
}

void take_terminal_over(const char* path)
{
    lead_a_process_group();

    termios found;
    const bool known = tcgetattr(STDIN_FILENO, &found) == 0;
    termios held = found;
    held.c_cflag &= ~static_cast<tcflag_t>(HUPCL);  // closing the line below must not drop it
    own_terminal(0, 0);
    if (known) tcsetattr(STDIN_FILENO, TCSAFLUSH, &held);
    std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGHUP, SIG_DFL);

    reopen(path);
    if (known) tcsetattr(STDIN_FILENO, TCSAFLUSH, &found);
}

void give_terminal_to(uid_t uid, gid_t gid)
{
    const group* terminals = getgrnam("tty");
    own_terminal(uid, terminals ? terminals->gr_gid : gid);
}

void close_descriptors_from(unsigned first)
{
    if (close_range(first, ~0U, 0) == 0) return;
    const long most = sysconf(_SC_OPEN_MAX);
    const unsigned end = most < 0 ? kMostDescriptors : static_cast<unsigned>(std::min<long>(most, kMostDescriptors));
    for (unsigned descriptor = end; descriptor > first; --descriptor) close(static_cast<int>(descriptor - 1));
}
