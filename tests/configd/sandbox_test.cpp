// Each case in a child process, which gives its privileges up for good.
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <linux/netlink.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/reboot.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "configd/sandbox.h"

namespace {
constexpr int kNotSandboxed = 254;

int error_of(long result) { return result < 0 ? errno : 0; }

// What `attempt` returns behind the sandbox; it is 0 or an errno value.
int in_sandbox(Privileges kept, int (*attempt)())
{
    const pid_t child = fork();
    if (child == 0) {
        if (apply_sandbox(kept) != 0) _exit(kNotSandboxed);
        _exit(attempt());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int open_socket(int domain, int type, int protocol) { return error_of(socket(domain, type | SOCK_CLOEXEC, protocol)); }

struct Case {
    const char* name;
    int (*attempt)();
    int error;
};
constexpr timespec never{.tv_sec = -1, .tv_nsec = 0};  // no machine takes it
char shell[] = "/bin/true";
char* const arguments[] = {shell, nullptr};

// clang-format off
const Case kCases[] = {
    {"RunAProgram",    [] { return error_of(execv(shell, arguments)); },                                EPERM},
    {"RunAnOpenFile",  [] { return error_of(syscall(SYS_execveat, 0, "", arguments, arguments, AT_EMPTY_PATH)); }, EPERM},
    {"CallOut",        [] { return open_socket(AF_INET, SOCK_STREAM, 0); },                             EPERM},
    {"CallOutIpv6",    [] { return open_socket(AF_INET6, SOCK_STREAM, 0); },                            EPERM},
    {"ReadTheLine",    [] { return open_socket(AF_PACKET, SOCK_RAW, 0); },                              EPERM},
    {"SendAnything",   [] { return open_socket(AF_INET, SOCK_RAW, IPPROTO_ICMP); },                     EPERM},
    {"OtherNetlink",   [] { return open_socket(AF_NETLINK, SOCK_RAW, NETLINK_NETFILTER); },             EPERM},
    {"Mount",          [] { return error_of(mount("none", "/mnt", "tmpfs", 0, nullptr)); },             EPERM},
    {"ChangeRoot",     [] { return error_of(chroot("/tmp")); },                                         EPERM},
    {"BecomeAnother",  [] { return error_of(syscall(SYS_setuid, 1)); },                                 EPERM},
    {"LoadAModule",    [] { return error_of(syscall(SYS_init_module, nullptr, 0, "")); },               EPERM},
    {"NewNamespace",   [] { return error_of(syscall(SYS_unshare, 0x10000000)); },                       EPERM},
    {"TypeForAnother", [] { return error_of(ioctl(STDIN_FILENO, TIOCSTI, "x")); },                      EPERM},
    {"SetTheClock",    [] { return error_of(clock_settime(CLOCK_REALTIME, &never)); },                  EPERM},
    {"Restart",        [] { return error_of(reboot(RB_DISABLE_CAD)); },                                 EPERM},
    {"WriteAFile",     [] { return error_of(open("/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600)); },     0},
    {"ListenToConsoles", [] { return open_socket(AF_UNIX, SOCK_STREAM, 0); },                           0},
    {"TellTheLog",     [] { return open_socket(AF_UNIX, SOCK_DGRAM, 0); },                              0},
    {"TellALogServer", [] { return open_socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK, 0); },              0},
    {"SeeRoutes",      [] { return open_socket(AF_NETLINK, SOCK_RAW, NETLINK_ROUTE); },                 0},
};
// clang-format on
class Sandbox : public testing::TestWithParam<Case> {};
TEST_P(Sandbox, AllowsWhatTheServiceDoes) { EXPECT_EQ(in_sandbox({}, GetParam().attempt), GetParam().error); }
INSTANTIATE_TEST_SUITE_P(Attempts, Sandbox, testing::ValuesIn(kCases), [](const auto& c) { return c.param.name; });

// The calls come as far as the kernel's own judgement.
TEST(Sandbox, KeepsWhatTheProfileLeavesToTheService)
{
    EXPECT_EQ(in_sandbox({.setClock = true}, [] { return error_of(clock_settime(CLOCK_REALTIME, &never)); }), EINVAL);
    if (geteuid() != 0) GTEST_SKIP() << "only root may restart a machine";
    EXPECT_EQ(in_sandbox({.restartMachine = true}, [] { return error_of(reboot(0x12345678)); }), EINVAL);
}

TEST(Memory, IsInNoCoreDump)
{
    const pid_t child = fork();
    if (child == 0) {
        keep_memory_private();
        _exit(prctl(PR_GET_DUMPABLE));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}
}  // namespace
