// Management access and SNMP as an operator sees them, from the key to the stored value.
#include <filesystem>
#include <gtest/gtest.h>

#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr std::string_view kPrompt = "Command> ";

class ManagementCommands : public testing::Test {
protected:
    ManagementCommands() { t.log_in(); }

    // What a line prints, without its own echo and the prompt behind it.
    std::string run(const std::string& line)
    {
        ask(line);
        std::string printed = t.until(kPrompt);
        printed.resize(printed.size() - kPrompt.size());
        return printed;
    }
    // A line that is followed by questions.
    void ask(const std::string& line)
    {
        t.type(line + '\n');
        t.until(line + '\n');
    }
    // Answers the question that ends in `question`.
    void answer(const std::string& question, const std::string& text)
    {
        t.until(question);
        t.type(text + '\n');
    }

    Service service;
    Terminal t;
};

// One line that sets something, what it prints, the line that shows it.
struct Setting {
    const char *line, *shown, *printed;
};
constexpr char kHttp[] = "   HTTP port:   80          Timeout: 25 mins\n";
constexpr char kPing[] = " name            internet ping\n eth1            enabled\n";
constexpr Setting kSettings[] = {
    {"set http timeout 25", "show http", kHttp},
    {"set telnet port 2323", "show telnet", "   Telnet port: 2323        Timeout: 10 mins\n"},
    {"enable upnp", "show upnp", "   UPnP:                    enabled\n"},
    {"enable ping eth1", "show ping eth1", kPing},
    {"set community string read lab", "show community string read", "   Community string (read-only):  lab\n"},
    {"set community string write not-for-eyes", "show snmp",
     "   SNMP:                          disabled\n   Community string (read-only):  lab\n"
     "   Community string (read-write): ********\n   Trap managers:                 0\n"},
};

TEST_F(ManagementCommands, WhatIsSetIsThereAfterSaveAndRestart)
{
    for (const Setting& each : kSettings) {
        run(each.line);
        EXPECT_EQ(run(each.shown), each.printed) << each.line;
    }
    ask("set ddns");
    answer("enable DDNS (no, yes/no): ", "yes");
    answer("enter hostname (Unspecified): ", "home_1");
    answer("enter username (Unspecified): ", "fred");
    answer("enter password (Unspecified): ", "not-for-eyes");
    EXPECT_EQ(t.until(kPrompt).find("not-for-eyes"), std::string::npos);

    run("save config");
    run("set http timeout 1");
    run("disable upnp");
    run("disable ddns");
    service.stop();
    std::filesystem::remove(std::filesystem::path(Service::socket_path()).parent_path() / "running.json");
    service.start();
    EXPECT_EQ(run("show http"), kHttp);
    EXPECT_EQ(run("show upnp"), "   UPnP:                    enabled\n");
    EXPECT_EQ(run("show ping eth1"), kPing);
    ask("set ddns");
    answer("enable DDNS (yes, yes/no): ", "");
    answer("enter hostname (home_1): ", "");
    answer("enter username (fred): ", "");
    answer("enter password (********): ", "");
    EXPECT_EQ(t.until(kPrompt).find("not-for-eyes"), std::string::npos);
    EXPECT_EQ(Service::log().find("not-for-eyes"), std::string::npos);
    EXPECT_NE(run("show system").find("   Allow internet ping:     enabled\n"), std::string::npos);
}

TEST_F(ManagementCommands, TheHttpPortAsksFirst)
{
    for (const char* reply : {"", "no", "yes"}) {
        ask("set http port 8080");
        answer("do you want to continue(no, yes/no):", reply);
        t.until(kPrompt);
        const bool changed = std::string_view(reply) == "yes";
        EXPECT_EQ(run("show http"), changed ? "   HTTP port:   8080        Timeout: 10 mins\n"
                                            : "   HTTP port:   80          Timeout: 10 mins\n");
    }
    EXPECT_EQ(run("set telnet port 8080"), " Error: Port number is already in use\a\n");
    ask("set http port 90");
    t.until("yes/no):");
    t.type("yes\x03");
    t.until(kPrompt);
    EXPECT_EQ(run("show http"), "   HTTP port:   8080        Timeout: 10 mins\n");
}

// Each parameter with a value that it does not take, at the length it begins to.
struct Refused {
    const char *line, *message;
};
constexpr Refused kRefused[] = {
    {"set http port 0", "TCP and UDP use 16-bit port numbers"},
    {"set http port 65536", "TCP and UDP use 16-bit port numbers"},
    {"set http timeout 61", "Session timeout must be an integer, 1 to 60 minutes."},
    {"set telnet port x", "TCP and UDP use 16-bit port numbers"},
    {"set telnet timeout 0", "Session timeout must be an integer, 1 to 60 minutes."},
    {"set community string read sixteen-letters!", "up to 15"},
    {"set community string write sixteen-letters!", "up to 15"},
    {"show trap manager a-name-of-thirty-one-characters", "up to 30"},
    {"show trap manager nobody", "There is no trap manager of that name"},
    {"show ping sixteen-letters!", "up to 15"},
    {"show ping eth9", "There is no interface of that name"},
    {"enable ping eth9", "There is no interface of that name"},
    {"disable ping eth9", "There is no interface of that name"},
    {"enable ddns", "Hostname must not be empty"},
};

TEST_F(ManagementCommands, SayWhatIsWrong)
{
    for (const Refused& each : kRefused) {
        EXPECT_NE(run(each.line).find(each.message), std::string::npos) << each.line;
        t.type("\x03");  // a line that the editor refuses stays for correction
        t.until(kPrompt);
    }
}

// clang-format off
constexpr const char* kLines[] = {
    "set http port 81", "set http timeout 5", "set telnet port 24", "set telnet timeout 5", "show http",
    "show telnet", "enable upnp", "disable upnp", "show upnp", "set ddns", "enable ddns", "disable ddns",
    "show ping", "show ping eth1", "enable ping eth1", "disable ping eth1", "set community string read a",
    "set community string write a", "show community string read", "enable snmp", "disable snmp", "show snmp",
    "show snmp statistics", "show trap manager", "show trap manager a",
};
// clang-format on
TEST_F(ManagementCommands, EndAtThePromptWithoutTheService)
{
    service.stop();
    for (const char* line : kLines) EXPECT_EQ(run(line), "\aThe configuration service is not running\n") << line;
}
}  // namespace
