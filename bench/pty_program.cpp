#include "pty_program.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

struct PtyProgram::Shared {
    Nanoseconds execTime;
};

namespace {
constexpr int kPatienceMilliseconds = 10'000;
constexpr Nanoseconds kLeaveTime = std::chrono::milliseconds(300);
constexpr std::size_t kReadSize = 65536;

[[noreturn]] void fail(const char* what)
{
    std::perror(what);
    std::exit(EXIT_FAILURE);
}

// In the child: the terminal becomes its own, and nothing of this program stays open.
void enter_terminal(const char* terminal)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setsid();
    const int line = open(terminal, O_RDWR);
    if (line < 0 || ioctl(line, TIOCSCTTY, 0) != 0) _exit(127);
    const winsize size{.ws_row = 24, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    ioctl(line, TIOCSWINSZ, &size);
    for (int descriptor = 0; descriptor <= 2; ++descriptor) dup2(line, descriptor);
    close_range(3, ~0u, 0);
}
}  // namespace

Nanoseconds now()
{
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return std::chrono::seconds(time.tv_sec) + Nanoseconds(time.tv_nsec);
}

PtyProgram::PtyProgram(const std::vector<std::string>& command, Held held) : command_(command)
{
    line_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (line_ < 0 || grantpt(line_) != 0 || unlockpt(line_) != 0) fail("no pseudo terminal");
    terminal_ = ptsname(line_);
    void* page = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED) fail("mmap");
    shared_ = static_cast<Shared*>(page);

    std::vector<char*> arguments;
    for (std::string& word : command_) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    pid_ = fork();
    if (pid_ < 0) fail("fork");
    if (pid_ == 0) {
        enter_terminal(terminal_.c_str());
        if (held == Held::beforeExec) raise(SIGSTOP);
        shared_->execTime = now();
        execv(arguments[0], arguments.data());
        std::perror(arguments[0]);
        _exit(127);
    }
}

// A hang-up first: a console may have something to put back, on the line or in the login records.
PtyProgram::~PtyProgram()
{
    close(line_);
    const Nanoseconds end = now() + kLeaveTime;
    while (waitpid(pid_, nullptr, WNOHANG | __WALL) == 0) {
        if (now() > end) kill(pid_, SIGKILL);
        poll(nullptr, 0, 1);
    }
    munmap(shared_, sizeof(Shared));
}

Nanoseconds PtyProgram::exec_time() const { return shared_->execTime; }

void PtyProgram::send(std::string_view keys)
{
    if (keys.empty()) return;
    seen_.clear();
    if (write(line_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) fail("the keys do not fit");
}

bool PtyProgram::read_some(int waitMilliseconds)
{
    pollfd line{.fd = line_, .events = POLLIN, .revents = 0};
    if (poll(&line, 1, waitMilliseconds) <= 0) return false;
    char bytes[kReadSize];
    const ssize_t count = read(line_, bytes, sizeof bytes);
    if (count > 0) seen_.append(bytes, static_cast<std::size_t>(count));
    return count > 0;
}

bool PtyProgram::take(std::string_view text)
{
    const std::size_t at = seen_.find(text);
    if (at == std::string::npos) return false;
    seen_.erase(0, at + text.size());
    return true;
}

void PtyProgram::until(std::string_view text)
{
    while (!take(text))
        if (!read_some(kPatienceMilliseconds)) give_up(text);
}

unsigned PtyProgram::stream(std::string_view keys, std::string_view text, unsigned times)
{
    unsigned found = 0;
    while (found < times) {
        const short wanted = static_cast<short>(keys.empty() ? POLLIN : POLLIN | POLLOUT);
        pollfd line{.fd = line_, .events = wanted, .revents = 0};
        if (poll(&line, 1, kPatienceMilliseconds / 5) <= 0) break;
        if (line.revents & POLLIN) {
            if (!read_some(0)) break;
            while (take(text)) ++found;
        }
        if (line.revents & POLLOUT) {
            const ssize_t count = write(line_, keys.data(), keys.size());
            if (count > 0) keys.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    return found;
}

void PtyProgram::give_up(std::string_view text) const
{
    std::fprintf(stderr, "%s: waited in vain for \"%.*s\"; seen:\n%s\n", command_[0].c_str(),
                 static_cast<int>(text.size()), text.data(), seen_.c_str());
    std::exit(EXIT_FAILURE);
}

long private_dirty_kilobytes(pid_t process)
{
    std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string word; rollup >> word;) {
        long kilobytes;
        if (word == "Private_Dirty:" && rollup >> kilobytes) return kilobytes;
    }
    return -1;
}
