// Commands as an operator sees them, and what becomes of the settings they change.
#include <gtest/gtest.h>
#include <regex.h>
#include <sstream>

#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr std::string_view kPrompt = "Command> ";

bool matches(const std::string& line, const std::string& pattern)
{
    regex_t expression;
    if (regcomp(&expression, ("^" + pattern + "$").c_str(), REG_EXTENDED | REG_NOSUB) != 0) return false;
    const bool found = regexec(&expression, line.c_str(), 0, nullptr, 0) == 0;
    regfree(&expression);
    return found;
}

class Commands : public testing::Test {
protected:
    Commands() { t.log_in(); }

    // What a command prints, without its own echo and the prompt behind it.
    std::string run(const std::string& command)
    {
        t.type(command + '\n');
        t.until(command + '\n');
        std::string printed = t.until(kPrompt);
        printed.resize(printed.size() - kPrompt.size());
        return printed;
    }

    Service service;
    Terminal t;
};

// What this machine has (addresses, up time) by its form, everything else as it stands on the screen.
TEST_F(Commands, ShowSystem)
{
    constexpr const char* kLines[] = {
        R"(   System Name: lab-ap                    Up Time: [ 0-9][0-9] months [ 0-9][0-9] days [0-9]{2}:[0-9]{2}:[0-9]{2})",
        R"( -{78})",
        R"(   System description:      [^ ].*)",
        R"(   System contact:          who \? me)",
        R"(   System location:         )",
        R"(   Community string \(read-only\): public)",
        R"()",
        R"(   S/W Version:             1\.08e01W)",
        R"(   H/W Version:             1\.0 )",
        R"()",
        R"(   System IP/Netmask:       [0-9.]+/[0-9.]+)",
        R"(   WAN IP/Netmask:          [0-9.]+/[0-9.]+)",
        R"(   Gateway IP address:      ([0-9.]+|Unspecified))",
        R"(   Primary/Secondary DNS:   [0-9.]+/[0-9.]+)",
        R"(   System WAN MAC:          ([0-9a-f]{2}-){5}[0-9a-f]{2})",
        R"(   System LAN MAC:          ([0-9a-f]{2}-){5}[0-9a-f]{2})",
        R"(   Wireless MAC:            ([0-9a-f]{2}-){5}[0-9a-f]{2})",
        R"()",
        R"(   WMAC-0:   ([0-9a-f]{2}-){5}[0-9a-f]{2}   md='.+' +ch\([ 0-9a-z]{4}\)  id\(.*\))",
        R"(   WMAC-1:   ([0-9a-f]{2}-){5}[0-9a-f]{2}   md='.+' +ch\([ 0-9a-z]{4}\)  id\(.*\))",
        R"()",
        R"(   Telnet port: 23          Timeout: 10 mins)",
        R"(   HTTP port:   80          Timeout: 10 mins)",
        R"()",
        R"(   UPnP:                    (en|dis)abled)",
        R"(   Remote management:       (en|dis)abled)",
        R"(   Allow internet ping:     (en|dis)abled)",
        R"(   System log level:        [0-9])",
    };
    run("set system name lab-ap");
    run("set system contact \"who ? me\"");
    std::istringstream screen(run("show system"));
    std::string line;
    for (const char* expected : kLines) {
        std::getline(screen, line);
        EXPECT_TRUE(matches(line, expected)) << '"' << line << "\"\nis not\n" << expected;
    }
    EXPECT_FALSE(std::getline(screen, line)) << line;
}

struct Command {
    const char* name;
    const char* line;
    const char* printed;
};
class OneCommand : public Commands, public testing::WithParamInterface<Command> {};
TEST_P(OneCommand, Prints) { EXPECT_EQ(run(GetParam().line), GetParam().printed); }
constexpr Command kCommands[] = {
    {"SetName", "set system name lab-ap", "System Name: lab-ap\n"},
    {"SetContact", "set system contact \"the attic\"", "System contact: the attic\n"},
    {"SetLocation", "set system location here", "System location: here\n"},
    {"PromptOfFifteen", "set prompt 123456789012345",
     "Set prompt to 123456789012345 success, next time you login will take effect\n"},
    {"RoutingCommandWithoutADispatchRecord", "enable rip1 active", "Command dispatch entry not found\n"},
};
INSTANTIATE_TEST_SUITE_P(Lines, OneCommand, testing::ValuesIn(kCommands),
                         [](const auto& command) { return command.param.name; });

// Running is what is in force: it outlives the service. Saved is what counts from the next start of the device on.
TEST_F(Commands, SettingsOutliveTheService)
{
    run("set system name kept");
    service.kill();
    service.start();
    EXPECT_TRUE(run("show system").starts_with("   System Name: kept "));
    service.restart();
    EXPECT_TRUE(run("show system").starts_with("   System Name: kept "));
}
}  // namespace
