#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "console/session.h"
#include "console/terminal.h"
#include "login/session_timeout.h"

namespace {
// What the handler does to a line that had been changed for reading keys, or whose attributes nobody had kept yet.
class SessionTimeout : public testing::TestWithParam<bool> {};
TEST_P(SessionTimeout, SaysSoRestoresTheTerminalAndEndsWithStatusZero)
{
    int master, slave;
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    termios found, after;
    ASSERT_EQ(tcgetattr(slave, &found), 0);
    found.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    ASSERT_EQ(tcsetattr(slave, TCSANOW, &found), 0);

    const pid_t child = fork();
    if (child == 0) {
        dup2(slave, STDIN_FILENO);
        dup2(slave, STDERR_FILENO);
        timeout = 300;
        install_timeout_handler();
        if (GetParam()) {
            keep_terminal_attributes();
            echo_off(stdin);
            set_keypress(stdin);
        }
        std::raise(SIGALRM);
        std::_Exit(1);
    }
    int status;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);

    char said[100];
    const ssize_t length = read(master, said, sizeof said);
    EXPECT_EQ(std::string(said, static_cast<std::size_t>(length)), "Login timed out after 300 seconds\n");

    ASSERT_EQ(tcgetattr(slave, &after), 0);
    EXPECT_EQ(after.c_lflag, found.c_lflag);
    EXPECT_EQ(after.c_oflag, found.c_oflag);
    EXPECT_EQ(after.c_cflag, found.c_cflag);
    close(master);
    close(slave);
}
INSTANTIATE_TEST_SUITE_P(Attributes, SessionTimeout, testing::Bool(),
                         [](const auto& c) { return c.param ? "Kept" : "NotKeptYet"; });
}  // namespace
