#include "call_count.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
constexpr Nanoseconds kQuiet = std::chrono::milliseconds(15);  // no call for so long: the program waits for a key
constexpr int kGlanceMilliseconds = 1;
constexpr Nanoseconds kPatience = std::chrono::seconds(20);

struct CallName {
    long number;
    const char* name;
};
// clang-format off
constexpr CallName kNames[] = {
    {SYS_read, "read"}, {SYS_write, "write"}, {SYS_writev, "writev"}, {SYS_readv, "readv"}, {SYS_pread64, "pread64"},
    {SYS_pwrite64, "pwrite64"}, {SYS_lseek, "lseek"}, {SYS_ioctl, "ioctl"}, {SYS_fcntl, "fcntl"},
    {SYS_openat, "openat"}, {SYS_close, "close"}, {SYS_close_range, "close_range"}, {SYS_dup, "dup"},
    {SYS_newfstatat, "newfstatat"}, {SYS_fchmod, "fchmod"}, {SYS_fchown, "fchown"}, {SYS_chdir, "chdir"},
    {SYS_faccessat2, "faccessat2"}, {SYS_flock, "flock"}, {SYS_sendmsg, "sendmsg"}, {SYS_recvmsg, "recvmsg"},
    {SYS_sendto, "sendto"}, {SYS_recvfrom, "recvfrom"}, {SYS_socket, "socket"}, {SYS_connect, "connect"},
    {SYS_bind, "bind"}, {SYS_getsockname, "getsockname"}, {SYS_setsockopt, "setsockopt"}, {SYS_ppoll, "ppoll"},
    {SYS_pselect6, "pselect6"}, {SYS_setitimer, "setitimer"}, {SYS_rt_sigaction, "rt_sigaction"},
    {SYS_rt_sigprocmask, "rt_sigprocmask"}, {SYS_mmap, "mmap"}, {SYS_munmap, "munmap"}, {SYS_mprotect, "mprotect"},
    {SYS_brk, "brk"}, {SYS_prlimit64, "prlimit64"}, {SYS_futex, "futex"}, {SYS_getrandom, "getrandom"},
    {SYS_set_tid_address, "set_tid_address"}, {SYS_set_robust_list, "set_robust_list"}, {SYS_rseq, "rseq"},
    {SYS_getpid, "getpid"}, {SYS_getppid, "getppid"}, {SYS_getuid, "getuid"}, {SYS_geteuid, "geteuid"},
    {SYS_getgid, "getgid"}, {SYS_getegid, "getegid"}, {SYS_setuid, "setuid"}, {SYS_setgid, "setgid"},
    {SYS_setgroups, "setgroups"}, {SYS_setresuid, "setresuid"}, {SYS_setresgid, "setresgid"},
    {SYS_setpgid, "setpgid"}, {SYS_setsid, "setsid"}, {SYS_setpriority, "setpriority"}, {SYS_prctl, "prctl"},
    {SYS_uname, "uname"},
#ifdef SYS_alarm  // the newer machines have only what replaced these
    {SYS_alarm, "alarm"}, {SYS_poll, "poll"}, {SYS_select, "select"}, {SYS_access, "access"},
    {SYS_readlink, "readlink"}, {SYS_dup2, "dup2"}, {SYS_stat, "stat"}, {SYS_lstat, "lstat"}, {SYS_open, "open"},
    {SYS_chmod, "chmod"}, {SYS_chown, "chown"}, {SYS_getpgrp, "getpgrp"},
#endif
#ifdef SYS_arch_prctl
    {SYS_arch_prctl, "arch_prctl"},
#endif
};
// clang-format on

std::string name_of(long number)
{
    for (const CallName& call : kNames)
        if (call.number == number) return call.name;
    return "call " + std::to_string(number);
}

class Tracer {
public:
    explicit Tracer(PtyProgram& program) : program_(program), pid_(program.id()) {}

    // The program waits for a key, or has stopped itself before it was loaded.
    void attach(bool stoppedItself)
    {
        if (ptrace(PTRACE_SEIZE, pid_, 0, PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACEEXEC) != 0) fail("ptrace");
        if (stoppedItself)
            kill(pid_, SIGCONT);
        else
            ptrace(PTRACE_INTERRUPT, pid_, 0, 0);
    }
    void settle() { follow(""); }

    CallCount count(const std::string& keys, const std::string& until, unsigned times)
    {
        count_ = {};
        counting_ = true;
        wanted_ = times;
        if (!keys.empty()) program_.send(keys);
        follow(until);
        counting_ = false;
        count_.operations = times;
        return count_;
    }
    CallCount count_from_exec(const std::string& until)
    {
        count_ = {};
        countFromExec_ = true;
        wanted_ = 1;
        stopAtText_ = true;
        follow(until);
        count_.operations = 1;
        return count_;
    }
    void detach()
    {
        ptrace(PTRACE_INTERRUPT, pid_, 0, 0);
        int status;
        if (waitpid(pid_, &status, __WALL) == pid_) ptrace(PTRACE_DETACH, pid_, 0, 0);
    }

private:
    [[noreturn]] static void fail(const char* what)
    {
        std::perror(what);
        std::exit(EXIT_FAILURE);
    }

    // Until the text has come as often as wanted and the program is quiet.
    void follow(const std::string& until)
    {
        unsigned missing = until.empty() ? 0 : wanted_;
        const Nanoseconds end = now() + kPatience;
        for (Nanoseconds last = now(); missing > 0 || now() - last < kQuiet;) {
            if (now() > end) {
                std::fprintf(stderr, "a traced program does not say \"%s\"\n", until.c_str());
                std::exit(EXIT_FAILURE);
            }
            int status;
            if (waitpid(pid_, &status, WNOHANG | __WALL) == pid_) {
                if (!WIFSTOPPED(status)) return;
                take_stop(status);
                last = now();
                continue;
            }
            program_.read_some(kGlanceMilliseconds);
            while (missing > 0 && program_.take(until)) --missing;
            if (missing == 0 && stopAtText_) return;
        }
    }

    void take_stop(int status)
    {
        const int signal = WSTOPSIG(status), event = status >> 16;
        int passedOn = 0;
        if (signal == (SIGTRAP | 0x80)) {
            if (counting_) take_call();
        } else if (event == PTRACE_EVENT_EXEC) {
            counting_ = counting_ || countFromExec_;
        } else if (event == 0) {
            passedOn = signal;
        }
        ptrace(PTRACE_SYSCALL, pid_, 0, passedOn);
    }

    void take_call()
    {
        __ptrace_syscall_info call{};
        if (ptrace(PTRACE_GET_SYSCALL_INFO, pid_, sizeof call, &call) <= 0) return;
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY) {
            ++count_.calls;
            const long number = static_cast<long>(call.entry.nr);
            ++count_.byName[name_of(number)];
            writing_ =
                (number == SYS_write || number == SYS_writev) && is_terminal(static_cast<int>(call.entry.args[0]));
        } else if (call.op == PTRACE_SYSCALL_INFO_EXIT && writing_ && call.exit.rval > 0) {
            ++count_.writes;
            count_.bytes += static_cast<unsigned long>(call.exit.rval);
            writing_ = false;
        }
    }

    bool is_terminal(int descriptor) const
    {
        const std::string link = "/proc/" + std::to_string(pid_) + "/fd/" + std::to_string(descriptor);
        char name[64];
        const ssize_t length = readlink(link.c_str(), name, sizeof name);
        const std::string_view is(name, length < 0 ? 0 : static_cast<std::size_t>(length));
        return is == program_.terminal() || is == "/dev/tty";
    }

    PtyProgram& program_;
    pid_t pid_;
    CallCount count_;
    unsigned wanted_ = 1;
    bool counting_ = false, countFromExec_ = false, stopAtText_ = false, writing_ = false;
};

void add(CallCount& to, const CallCount& more)
{
    to.operations += more.operations;
    to.calls += more.calls;
    to.writes += more.writes;
    to.bytes += more.bytes;
    for (const auto& [name, count] : more.byName) to.byName[name] += count;
}
}  // namespace

CallCount count_steps(PtyProgram& program, const FigureSession& figure)
{
    Tracer tracer(program);
    tracer.attach(false);
    tracer.settle();
    CallCount total;
    for (const Exchange& before : figure.before) tracer.count(before.send, before.until, 1);
    for (const Exchange& step : figure.steps)
        for (unsigned i = 0; i < step.times; ++i) add(total, tracer.count(step.send, step.until, 1));
    for (const Exchange& after : figure.after) tracer.count(after.send, after.until, 1);
    tracer.detach();
    return total;
}

CallCount count_paste(PtyProgram& program, const Exchange& paste)
{
    constexpr unsigned kLines = 20;  // together no more than a terminal line holds
    std::string lines;
    for (unsigned i = 0; i < kLines; ++i) lines += paste.send;
    Tracer tracer(program);
    tracer.attach(false);
    tracer.settle();
    const CallCount total = tracer.count(lines, paste.until, kLines);
    tracer.detach();
    return total;
}

CallCount count_start(const CommandSession& command)
{
    PtyProgram program(command.command, PtyProgram::Held::beforeExec);
    waitpid(program.id(), nullptr, WUNTRACED);
    Tracer tracer(program);
    tracer.attach(true);
    const CallCount total = tracer.count_from_exec(command.start);
    tracer.detach();
    return total;
}
