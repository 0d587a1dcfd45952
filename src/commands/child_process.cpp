#include "commands/child_process.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <initializer_list>
#include <poll.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "console/session.h"
#include "console/terminal.h"
#include "console/terminal_keys.h"

namespace {
constexpr int kCtrlC = 3;
constexpr int kFarewell = 2000;  // milliseconds that a program has for its last words
constexpr int kNotStarted = 127;

// What the session ignores or handles, an ordinary program does not.
void reset_signals()
{
    for (const int each : {SIGHUP, SIGINT, SIGQUIT, SIGALRM, SIGPIPE, SIGCHLD, SIGTSTP, SIGTTIN, SIGTTOU})
        std::signal(each, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void become(const char* path, const char* const* words)
{
    execv(path, const_cast<char* const*>(words));
    _exit(kNotStarted);
}

int wait_for(pid_t child, int options = 0)
{
    int status = 0;
    while (waitpid(child, &status, options) < 0 && errno == EINTR) {
    }
    return status;
}

// Ctrl-C gives up what was typed ahead, too. False once no further key can come.
bool read_ahead(bool& stop)
{
    if (!read_keys()) return false;
    alarm(timeout);
    stop = forget_keys_up_to(kCtrlC);
    return true;
}

bool has_ended(int ended, int limit)
{
    pollfd end{ended, POLLIN, 0};
    int seen;
    while ((seen = poll(&end, 1, limit)) < 0 && errno == EINTR) {
    }
    return seen > 0;
}

// `ended`: a pipe that the child holds the other end of; it has no more holders once the child has ended.
void watch(pid_t child, int ended)
{
    for (bool stop = false; !stop;) {
        const int keys = has_room_for_keys() ? STDIN_FILENO : -1;
        pollfd waits[] = {{keys, POLLIN, 0}, {ended, POLLIN, 0}};
        if (poll(waits, 2, -1) < 0) {
            if (errno == EINTR) continue;
            break;
        }
        if (waits[1].revents) return;
        if (waits[0].revents && !read_ahead(stop)) break;
        if (stop) prn_msg(0, "^C\n");
    }
    show_output();  // the key, before the program's last words
    kill(-child, SIGINT);
    if (!has_ended(ended, kFarewell)) kill(-child, SIGKILL);
}

// The foreground belongs to one process group; a line that is nobody's controlling terminal has none.
void give_foreground(pid_t group)
{
    const auto before = std::signal(SIGTTOU, SIG_IGN);
    tcsetpgrp(STDIN_FILENO, group);
    std::signal(SIGTTOU, before);
}

// A program that is told to stop goes on at once: there is no other job to change to.
int wait_and_keep_running(pid_t child)
{
    for (;;) {
        const int status = wait_for(child, WUNTRACED);
        if (!WIFSTOPPED(status)) return status;
        give_foreground(child);
        kill(-child, SIGCONT);
    }
}
}  // namespace

ChildEnd run_watched(const char* path, const char* const* words)
{
    int ends[2];
    if (access(path, X_OK) != 0 || pipe2(ends, O_CLOEXEC) != 0) return {.started = false, .status = 0};
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        setpgid(0, 0);
        fcntl(ends[1], F_SETFD, 0);
        const int nothing = open("/dev/null", O_RDONLY);
        if (nothing < 0 || dup2(nothing, STDIN_FILENO) < 0) _exit(kNotStarted);
        reset_signals();
        std::signal(SIGTTOU, SIG_IGN);  // it writes from the background
        become(path, words);
    }
    close(ends[1]);
    if (child > 0) {
        setpgid(child, child);
        watch(child, ends[0]);
    }
    close(ends[0]);
    if (child < 0) return {.started = false, .status = 0};
    return {.started = true, .status = wait_for(child)};
}

ChildEnd run_in_front(const char* path, const char* const* words)
{
    if (access(path, X_OK) != 0) return {.started = false, .status = 0};
    alarm(0);
    restore_tty_info();
    termios found;
    const bool known = tcgetattr(STDIN_FILENO, &found) == 0;
    std::fflush(stdout);

    const pid_t child = fork();
    if (child == 0) {
        setpgid(0, 0);
        give_foreground(getpid());
        reset_signals();
        become(path, words);
    }
    int status = 0;
    if (child > 0) {
        setpgid(child, child);
        give_foreground(child);
        status = wait_and_keep_running(child);
        give_foreground(getpgrp());
        // Whatever the program left of them: the next key read takes the line as it is now for the one found.
        if (known) tcsetattr(STDIN_FILENO, TCSANOW, &found);
    }
    alarm(timeout);
    return {.started = child > 0, .status = status};
}
