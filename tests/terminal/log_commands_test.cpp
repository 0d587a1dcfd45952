// The system log as an operator sees it.
#include <gtest/gtest.h>
#include <regex>
#include <unistd.h>

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
    const std::string user = geteuid() == 0 ? "root" : "user " + std::to_string(geteuid());
    const std::string shown = run("show log table");
    const std::regex change(" system    5     " + user +
                            " on pts/[0-9]+: system.name changed from \"router\" to \"lab-ap\"\nCommand> ");
    EXPECT_TRUE(std::regex_search(shown, change)) << shown;
    EXPECT_TRUE(shows("show log table login", ": console password accepted\n"));
    EXPECT_FALSE(shows("show log table login", "system.name"));
    EXPECT_TRUE(
        std::regex_search(Service::log(), std::regex("configd: " + user + " on pts/[0-9]+: system.name changed")))
        << Service::log();

    run("disable log system");
    run("enable trace dhcp");
    run("set system name other-ap");
    run("show dhcp server");
    EXPECT_TRUE(shows("show log table", " dhcp      7     request 1320 accepted\nCommand> "));
}

}  // namespace
