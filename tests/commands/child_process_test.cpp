// Ping and the shells with stub programs in the places of the system's, and a pipe in the place of the keyboard.
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "commands/arp.h"
#include "commands/ping.h"
#include "commands/running_action.h"
#include "commands/shell.h"
#include "console/terminal_keys.h"

namespace {
constexpr std::uint32_t kPing = 40, kPingParm = 41, kShowArpTable = 96, kZDebugShell = 184;

class Programs : public testing::Test {
protected:
    Programs()
    {
        char pattern[] = "/tmp/programs-XXXXXX";
        folder_ = mkdtemp(pattern);
        keys_ = folder_ + "/keys";
        EXPECT_EQ(mkfifo(keys_.c_str(), 0600), 0);
        keyboard_ = dup(STDIN_FILENO);
        read_keys_from(keys_);
        pingPrograms[0] = "/nowhere/ping";
        pingPrograms[1] = "/nowhere/either";
    }
    ~Programs() override
    {
        dup2(keyboard_, STDIN_FILENO);
        close(keyboard_);
        std::filesystem::remove_all(folder_);
        alarm(0);
    }

    const char* file(const std::string& name, const std::string& content)
    {
        paths_.push_back(folder_ + "/" + name);
        std::ofstream(paths_.back()) << content;
        chmod(paths_.back().c_str(), 0700);
        return paths_.back().c_str();
    }
    static void read_keys_from(const std::string& path)
    {
        const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
        EXPECT_GE(file, 0);
        dup2(file, STDIN_FILENO);
        close(file);
        forget_keys();
    }

    std::string folder_, keys_;  // a program presses keys by writing them to the second

private:
    int keyboard_;
    std::deque<std::string> paths_;
};

TEST_F(Programs, PingIsToldWhatWasTyped)
{
    pingPrograms[1] = file("ping", "#!/bin/sh\nprintf '%s\\n' \"$*\"; read key || echo no keys\n");
    EXPECT_EQ(RunningAction(kPing).number(0x7F000001).run(), "-n -c 4 -s 56 127.0.0.1\nno keys\n");
    EXPECT_EQ(RunningAction(kPingParm).number(0x0A000001).number(100).number(1932).run(),
              "-n -c 100 -s 1932 10.0.0.1\nno keys\n");
}

TEST_F(Programs, PingEndsWithCtrlCOrTheInput)
{
    const std::string go = "printf 'abc\\003' > " + keys_ + "\nwhile :; do sleep 1 & wait; done\n";
    pingPrograms[0] = file("ping", "#!/bin/sh\ntrap 'echo summary; exit' INT\necho begun\n" + go);
    EXPECT_EQ(RunningAction(kPing).number(1).run(), "begun\n^C\nsummary\n");
    pingPrograms[0] = file("deaf", "#!/bin/sh\ntrap '' INT\n" + go);
    EXPECT_EQ(RunningAction(kPing).number(1).run(), "^C\n");
    read_keys_from("/dev/null");
    EXPECT_EQ(RunningAction(kPing).number(1).run(), "");
}

TEST_F(Programs, TheShellGetsTheCommandAndOrdinarySignals)
{
    const auto before = std::signal(SIGINT, SIG_IGN);
    EXPECT_EQ(RunningAction(kZDebugShell).text("echo a b; kill -INT $$").run(), "a b\n\nEnded by signal 2\n");
    std::signal(SIGINT, before);
    EXPECT_EQ(RunningAction(kZDebugShell).text("exit 3").run(), "Exit status 3\n");
    EXPECT_EQ(RunningAction(kZDebugShell).text("kill -STOP $$; echo went on").run(), "went on\n");
    shellProgram = "/nowhere/sh";
    EXPECT_EQ(RunningAction(kZDebugShell).text("true").run(), "The shell cannot be started\n");
    shellProgram = "/bin/sh";
}

TEST_F(Programs, TheArpTableIsTheKernelsAndNothingElse)
{
    arpTablePath =
        file("arp", "IP address       HW type     Flags       HW address            Mask     Device\n"
                    "10.0.0.1         0x1         0x2         02:00:5e:aa:bb:cc     *        eth0\n"
                    "10.0.0.2         0x1         0x6         02:00:5e:aa:bb:cd     *        br0\n"
                    "10.0.0.3         0x1         0x0         00:00:00:00:00:00     *        eth0\n"
                    "10.0.0.256       0x1         0x2         02:00:5e:aa:bb:cc     *        eth0\n"
                    "10.0.0.5         0x1         0x2         02:00:5e:aa:bb:cc     *        et\x1b[2J\n"
                    "10.0.0.6         0x1         0x2\n"
                    "10.0.0.7         0x1         0x2         02:00:5e:aa:bb:cc     *        eth0 and more\n" +
                        std::string(5000, '1') + "\n" + "10.0.0.8 0x1 0x2 zz:00:5e:aa:bb:cc * eth1\n");
    EXPECT_EQ(RunningAction(kShowArpTable).run(), "IP Address       MAC Address        Type        Interface\n"
                                                  "-----------------------------------------------------------\n"
                                                  "10.0.0.1         02-00-5E-AA-BB-CC  dynamic     eth0\n"
                                                  "10.0.0.2         02-00-5E-AA-BB-CD  static      br0\n"
                                                  "10.0.0.3         incomplete         dynamic     eth0\n"
                                                  "10.0.0.8         incomplete         dynamic     eth1\n");
    arpTablePath = "/nowhere/arp";
    EXPECT_EQ(RunningAction(kShowArpTable).run(), "The ARP table cannot be read: No such file or directory\n");
    arpTablePath = "/proc/net/arp";
}
}  // namespace
