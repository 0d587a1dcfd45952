#include "support/process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <utmp.h>

namespace {
[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

// Only what may be called between fork and exec in a process that has threads.
[[noreturn]] void become(const Launch& launch, char* const* arguments)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGALRM}) std::signal(number, SIG_DFL);
    if (launch.ownTerminal) {
        if (login_tty(dup(launch.input)) != 0) _exit(126);
    } else {
        setpgid(0, 0);
        dup2(launch.input, STDIN_FILENO);
    }
    dup2(launch.output, STDOUT_FILENO);
    dup2(launch.errors, STDERR_FILENO);
    execv(arguments[0], arguments);
    _exit(127);
}
}  // namespace

int Deadline::poll_timeout() const
{
    const auto left = std::chrono::ceil<Milliseconds>(end_ - std::chrono::steady_clock::now());
    return static_cast<int>(std::max<Milliseconds::rep>(left.count(), 0));
}

Process::Process(const Launch& launch)
{
    std::vector<char*> arguments;
    for (const std::string& word : launch.command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    pid_ = fork();
    if (pid_ < 0) fail("fork");
    if (pid_ == 0) become(launch, arguments.data());

    ended_ = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0));
    if (ended_ < 0) fail("pidfd_open");
}

void Process::signal(int number)
{
    if (pid_ > 0 && !status_) kill(pid_, number);
}

std::optional<int> Process::wait_exit(Milliseconds limit)
{
    if (pid_ < 0 || status_) return status_;
    const Deadline deadline(limit);
    pollfd ended{ended_, POLLIN, 0};
    while (poll(&ended, 1, deadline.poll_timeout()) < 0 && errno == EINTR) {
    }

    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) == pid_)
        status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return status_;
}

void Process::end()
{
    if (pid_ < 0) return;
    signal(SIGKILL);
    wait_exit(kPatience);
    close(ended_);
    pid_ = ended_ = -1;
    status_.reset();
}

void Process::swap(Process& other) noexcept
{
    std::swap(pid_, other.pid_);
    std::swap(ended_, other.ended_);
    std::swap(status_, other.status_);
}
