#include "configd/sandbox.h"

#include <cerrno>
#include <cstdint>
#include <linux/capability.h>
#include <linux/netlink.h>
#include <linux/sockios.h>
#include <seccomp.h>
#include <span>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
// By name: what a machine does not have, or has under a newer name, is left out there.
// clang-format off
constexpr const char* kCalls[] = {
    // files
    "open", "openat", "close", "read", "readv", "pread64", "write", "writev", "pwrite64", "lseek", "_llseek",
    "fsync", "fdatasync", "ftruncate", "ftruncate64", "flock", "fcntl", "fcntl64", "dup",
    "stat", "stat64", "lstat", "lstat64", "fstat", "fstat64", "newfstatat", "fstatat64", "statx", "fstatfs", "fstatfs64",
    "access", "faccessat", "faccessat2", "readlink", "readlinkat", "getdents", "getdents64", "getcwd",
    "rename", "renameat", "renameat2", "link", "linkat", "symlink", "symlinkat", "unlink", "unlinkat",
    "mkdir", "mkdirat", "rmdir", "chmod", "fchmod", "fchmodat", "umask", "utimensat", "utimensat_time64",
    // sockets; socket itself is below
    "bind", "connect", "listen", "accept", "accept4", "shutdown", "getsockname", "getpeername", "getsockopt", "setsockopt",
    "send", "sendto", "sendmsg", "sendmmsg", "recv", "recvfrom", "recvmsg", "recvmmsg", "recvmmsg_time64",
    // waiting
    "poll", "ppoll", "ppoll_time64", "nanosleep", "clock_nanosleep", "clock_nanosleep_time64", "restart_syscall",
    "signalfd4", "eventfd2", "timerfd_create", "timerfd_settime", "timerfd_settime64",
    // memory
    "brk", "mmap", "mmap2", "munmap", "mremap", "mprotect", "madvise",
    "futex", "futex_time64", "getrandom",
    // time and what the process is
    "clock_gettime", "clock_gettime64", "clock_getres", "clock_getres_time64", "gettimeofday", "time",
    "getpid", "gettid", "getppid", "getuid", "getuid32", "geteuid", "geteuid32", "getgid", "getgid32", "getegid", "getegid32",
    "uname", "sysinfo", "getrlimit", "ugetrlimit", "sched_yield",
    "rt_sigaction", "rt_sigprocmask", "rt_sigreturn", "sigreturn", "sigaltstack", "exit", "exit_group",
    "sync",
};
// The leak check at the end of an instrumented program: a thread of its own looks at the others.
constexpr const char* kCallsOfSanitizers[] = {
    "clone", "ptrace", "prctl", "wait4", "tkill", "kill", "pipe", "pipe2", "prlimit64", "setrlimit", "getpgrp",
    "sched_getaffinity", "process_vm_readv", "set_robust_list", "rseq",
};
// clang-format on
constexpr bool kIsSanitized = ROUTER_SANITIZED;

constexpr std::uint32_t kTypeOfSocket = 0xF;  // without the flags that are given along with it

class Filter {
public:
    Filter() : context_(seccomp_init(SCMP_ACT_ERRNO(EPERM))), error_(context_ ? 0 : ENOMEM)
    {
        if (!context_) return;
        keep(seccomp_attr_set(context_, SCMP_FLTATR_API_SYSRAWRC, 1));
        // What is refused stands in the kernel's log; an old kernel only refuses.
        seccomp_attr_set(context_, SCMP_FLTATR_CTL_LOG, 1);
    }
    ~Filter() { seccomp_release(context_); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    void allow(const char* name, std::span<const scmp_arg_cmp> when = {})
    {
        const int call = seccomp_syscall_resolve_name(name);
        if (call == __NR_SCMP_ERROR || error_ != 0) return;
        keep(seccomp_rule_add_array(context_, SCMP_ACT_ALLOW, call, static_cast<unsigned>(when.size()), when.data()));
    }
    int load()
    {
        if (error_ == 0) keep(seccomp_load(context_));
        return error_;
    }

private:
    void keep(int result)
    {
        if (result < 0 && error_ == 0) error_ = -result;
    }

    scmp_filter_ctx context_;
    int error_;
};

constexpr scmp_arg_cmp is(unsigned argument, std::uint64_t value) { return {argument, SCMP_CMP_EQ, value, 0}; }
constexpr scmp_arg_cmp is_type(int type)
{
    return {1, SCMP_CMP_MASKED_EQ, kTypeOfSocket, static_cast<scmp_datum_t>(type)};
}

// The console, the system log and hostapd; routes and interfaces; a syslog server.
void allow_sockets(Filter& filter)
{
    const scmp_arg_cmp local[] = {is(0, AF_UNIX)};
    const scmp_arg_cmp routes[] = {is(0, AF_NETLINK), is(2, NETLINK_ROUTE)};
    const scmp_arg_cmp datagrams[] = {is(0, AF_INET), is_type(SOCK_DGRAM)};
    const scmp_arg_cmp datagrams6[] = {is(0, AF_INET6), is_type(SOCK_DGRAM)};
    filter.allow("socket", local);
    filter.allow("socket", routes);
    filter.allow("socket", datagrams);
    filter.allow("socket", datagrams6);
}

// How an interface's link is asked for, and what the C library asks on the way: number and name of an interface,
// whether a stream is a terminal.
void allow_controls(Filter& filter)
{
    for (const int request : {SIOCETHTOOL, SIOCGIFINDEX, SIOCGIFNAME, TCGETS}) {
        const scmp_arg_cmp same[] = {is(1, static_cast<std::uint64_t>(request))};
        filter.allow("ioctl", same);
    }
}

int load_filter(Privileges kept)
{
    if (prctl(PR_GET_SECCOMP) < 0) return ENOSYS;
    Filter filter;
    for (const char* call : kCalls) filter.allow(call);
    if (kIsSanitized) {
        for (const char* call : kCallsOfSanitizers) filter.allow(call);
    }
    allow_sockets(filter);
    allow_controls(filter);
    const scmp_arg_cmp itself[] = {is(0, static_cast<std::uint64_t>(getpid()))};
    filter.allow("tgkill", itself);  // abort()
    if (kept.setClock) {
        for (const char* call : {"clock_settime", "clock_settime64"}) filter.allow(call);
    }
    if (kept.restartMachine) filter.allow("reboot");
    return filter.load();
}

constexpr std::uint64_t bit(int capability) { return std::uint64_t{1} << capability; }

int keep_capabilities(std::uint64_t wanted)
{
    // The bounding set needs a capability that goes with the others; who does not have it has little to lose.
    for (int each = 0; prctl(PR_CAPBSET_READ, each) >= 0; each++) {
        if (!(wanted & bit(each))) prctl(PR_CAPBSET_DROP, each);
    }
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3]{};
    if (syscall(SYS_capget, &header, sets) != 0) return errno;
    for (auto& set : sets) {
        set.permitted &= static_cast<std::uint32_t>(wanted);
        set.effective = set.permitted;
        set.inheritable = 0;
        wanted >>= 32;
    }
    return syscall(SYS_capset, &header, sets) == 0 ? 0 : errno;
}
}  // namespace

int apply_sandbox(Privileges kept)
{
    std::uint64_t wanted = bit(CAP_NET_ADMIN);  // addresses and routes
    if (kept.setClock) wanted |= bit(CAP_SYS_TIME);
    if (kept.restartMachine) wanted |= bit(CAP_SYS_BOOT);
    if (const int error = keep_capabilities(wanted)) return error;
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return errno;
    return load_filter(kept);
}

void keep_memory_private()
{
    prctl(PR_SET_DUMPABLE, 0);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}
