// Runs a piece of a test in a network namespace of its own, so that nothing it changes is the machine's. Where the
// machine does not allow one the test is skipped with a line that says so.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace own_network {
inline constexpr int kPassed = 0, kFailed = 1, kSetupFailed = 2, kNotAllowed = 77;

inline ino_t network_of_this_process()
{
    struct stat about {};
    return stat("/proc/self/ns/net", &about) == 0 ? about.st_ino : 0;
}

inline void write_file(const char* path, const std::string& text)
{
    const int file = open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0) return;
    if (write(file, text.data(), text.size()) < 0) std::perror(path);
    close(file);
}

// An ordinary user gets one together with a user namespace in which it is root.
inline bool enter()
{
    const ino_t before = network_of_this_process();
    if (unshare(CLONE_NEWNET) != 0) {
        const std::string user = "0 " + std::to_string(geteuid()) + " 1",
                          group = "0 " + std::to_string(getegid()) + " 1";
        if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
        write_file("/proc/self/setgroups", "deny");
        write_file("/proc/self/uid_map", user);
        write_file("/proc/self/gid_map", group);
    }
    return before != 0 && network_of_this_process() != before;
}

// What a child process that did the work reports.
inline void report(int exitStatus)
{
    if (exitStatus == kNotAllowed) GTEST_SKIP() << "no network of our own on this machine";
    if (exitStatus == kSetupFailed) FAIL() << "the commands before the test failed";
    EXPECT_EQ(exitStatus, kPassed) << "inside the network of our own, see above";
}
}  // namespace own_network

// What a shell command prints.
inline std::string shell(const std::string& command)
{
    std::string output;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return output;
    char piece[4096];
    for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, pipe)) > 0;) output.append(piece, got);
    pclose(pipe);
    return output;
}

// Two ports joined by a cable, eth0 and eth1, then the setup (shell commands with ip(8)), then the body.
template <class Body> void in_own_network(const std::string& setup, Body body)
{
    constexpr const char* kPorts = "ip link set lo up && ip link add eth0 type veth peer name eth1";
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (!own_network::enter() || std::system(kPorts) != 0) _exit(own_network::kNotAllowed);
        if (std::system(setup.c_str()) != 0) _exit(own_network::kSetupFailed);
        [&]() noexcept { body(); }();  // nothing thrown gets out into the tests behind this one
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? own_network::kFailed : own_network::kPassed);
    }
    int status = 0;
    waitpid(child, &status, 0);
    own_network::report(WIFEXITED(status) ? WEXITSTATUS(status) : own_network::kFailed);
}
