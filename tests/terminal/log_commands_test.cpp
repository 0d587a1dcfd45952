// The system log as an operator sees it.
#include <gtest/gtest.h>

#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr std::string_view kPrompt = "Command> ";

class LogCommands : public testing::Test {
protected:
    LogCommands() { t.log_in(); }

    std::string run(const std::string& line)
    {
        t.type(line + '\n');
        t.until(line + '\n');
        return t.until(kPrompt);
    }
    bool shows(const std::string& line, const std::string& text) { return run(line).find(text) != std::string::npos; }

    Service service;
    Terminal t;
};

TEST_F(LogCommands, TheTableHasWhatWasChanged)
{
    run("set system name lab-ap");
    EXPECT_TRUE(shows("show log table", " system    5     system settings accepted\nCommand> "));
    EXPECT_TRUE(shows("show log table login", " login     6     console password accepted\n"));
    EXPECT_FALSE(shows("show log table login", "system settings"));

    run("disable log system");
    run("enable trace dhcp");
    run("set system name other-ap");
    run("show dhcp server");
    EXPECT_TRUE(shows("show log table", " dhcp      7     request 1320 accepted\nCommand> "));
}

}  // namespace
