// A restart is only asked for inside a process namespace of its own, where it ends that namespace and nothing else.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "configd/linux/device.h"

namespace {
bool may_do_anything()  // any privilege at all
{
    unsigned long long effective = ~0ull;
    FILE* status = std::fopen("/proc/self/status", "re");
    char line[256];
    while (status && std::fgets(line, sizeof line, status))
        if (std::sscanf(line, "CapEff: %llx", &effective) == 1) break;
    if (status) std::fclose(status);
    return effective != 0;
}

// The wait status of a child that ran body as the first process of a process namespace; -1: not allowed here.
template <class Body> int in_own_processes(Body body)
{
    std::fflush(nullptr);
    const long child = syscall(SYS_clone, CLONE_NEWPID | SIGCHLD, nullptr, nullptr, nullptr, nullptr);
    if (child < 0) return -1;
    if (child == 0) {
        if (syscall(SYS_getpid) == 1) body();
        _exit(99);
    }
    int status = 0;
    waitpid(static_cast<pid_t>(child), &status, 0);
    return status;
}

TEST(Restart, HappensOrTellsTheRefusal)
{
    const int refused = in_own_processes([] {
        if (setresuid(65534, 65534, 65534) != 0 || may_do_anything()) _exit(77);
        _exit(kLinuxDevice.restart_machine());
    });
    if (refused == -1 || (WIFEXITED(refused) && WEXITSTATUS(refused) == 77))
        GTEST_SKIP() << "no process namespace of our own on this machine";
    EXPECT_EQ(refused, EPERM << 8) << "exit status EPERM";

    const int restarted = in_own_processes([] { _exit(kLinuxDevice.restart_machine()); });
    if (WIFEXITED(restarted) && WEXITSTATUS(restarted) == EPERM) GTEST_SKIP() << "no restarts in here";
    ASSERT_TRUE(WIFSIGNALED(restarted));
    EXPECT_EQ(WTERMSIG(restarted), SIGHUP) << "what a restart looks like from outside";
}
}  // namespace
