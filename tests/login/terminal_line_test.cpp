#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "login/login_values.h"
#include "login/terminal_line.h"

namespace {

TEST(GoodTerminal, IsACharacterDevice)
{
    EXPECT_TRUE(is_good_terminal("/dev/null"));
    EXPECT_FALSE(is_good_terminal("/dev/tty??"));
    EXPECT_FALSE(is_good_terminal("/dev"));
    EXPECT_FALSE(is_good_terminal("/proc/self/exe"));
    EXPECT_FALSE(is_good_terminal("/dev/stdin")) << "a link is not followed";
}

// In a child: the line as found, a program that holds more descriptors than it needs, in a session of its own.
TEST(TakeTerminalOver, LeavesTheLineOnTheStandardDescriptorsAsItWas)
{
    int master, slave;
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    termios found, after;
    ASSERT_EQ(tcgetattr(slave, &found), 0);
    found.c_cflag |= HUPCL;
    found.c_lflag &= ~static_cast<tcflag_t>(ECHOK);
    ASSERT_EQ(tcsetattr(slave, TCSANOW, &found), 0);
    const std::string path = ttyname(slave);
    ASSERT_EQ(write(master, "typed ahead\n", 12), 12);

    const pid_t child = fork();
    if (child == 0) {
        setsid();
        dup2(slave, STDIN_FILENO);
        dup2(STDIN_FILENO, 100);
        close_descriptors_from(3);
        if (fcntl(100, F_GETFD) != -1 || fcntl(STDIN_FILENO, F_GETFD) == -1) std::_Exit(2);

        take_terminal_over(path.c_str());
        struct stat input, output, error;
        fstat(STDIN_FILENO, &input);
        fstat(STDOUT_FILENO, &output);
        fstat(STDERR_FILENO, &error);
        if (input.st_rdev != output.st_rdev || input.st_rdev != error.st_rdev) std::_Exit(3);
        if (fcntl(STDIN_FILENO, F_GETFL) & O_NONBLOCK) std::_Exit(4);
        if (fcntl(3, F_GETFD) != -1) std::_Exit(5);
        if ((input.st_mode & 0777) != 0600) std::_Exit(6);
        if (tcgetpgrp(STDIN_FILENO) != getpid()) std::_Exit(7);
        if (write(STDOUT_FILENO, "ready", 5) != 5) std::_Exit(8);
        char line[16] = {};
        if (read(STDIN_FILENO, line, sizeof line) != 4 || line[0] != 'n') std::_Exit(9);
        std::_Exit(0);
    }
    std::string seen;
    char byte;
    while (seen.find("ready") == std::string::npos && read(master, &byte, 1) == 1) seen += byte;
    EXPECT_EQ(write(master, "new\n", 4), 4);
    int status;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);

    ASSERT_EQ(tcgetattr(slave, &after), 0);
    EXPECT_EQ(after.c_cflag, found.c_cflag);
    EXPECT_EQ(after.c_lflag, found.c_lflag);
    close(master);
    close(slave);
}
}  // namespace
