// Commands that hand the terminal over, and the other engineering commands, as an operator sees them.
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/service.h"
#include "support/terminal.h"
#include "terminal/attributes.h"

namespace {
constexpr std::string_view kPrompt = "Command> ";

class EngineeringCommands : public testing::Test {
protected:
    EngineeringCommands() { t.log_in(); }

    std::string run(const std::string& line)
    {
        t.type(line + '\n');
        t.until(line + '\n');
        return t.until(kPrompt);
    }
    // Keys that arrive while the line changes hands would be taken as neither side wants them.
    bool line_is_raw(bool raw) const
    {
        for (const Deadline deadline(kPatience); !(t.attributes().c_lflag & ICANON) != raw;)
            if (deadline.passed()) return false;
        return true;
    }
    void enter_shell()
    {
        t.type("z_shell\n");
        t.until("\"exit\" returns to the console\n");
        ASSERT_TRUE(line_is_raw(false));
    }

    Service service;
    Terminal t;
};

TEST_F(EngineeringCommands, TheShellGetsTheLineAsItWasFound)
{
    enter_shell();
    t.type("stty -echo; PS1='re''ady> '\n");
    t.until("ready> ");
    EXPECT_EQ(t.attributes().c_cc[VINTR], t.found().c_cc[VINTR]);
    t.type("sh -c 'echo sleeping; exec sleep 100'\n");
    t.until("sleeping\n");
    t.send("\x03");  // a signal here, and for the sleeping program alone
    t.until("ready> ");
    t.type("echo still here; exit 4\n");
    EXPECT_EQ(t.until(kPrompt), "still here\nCommand> ");
    ASSERT_TRUE(line_is_raw(true));
    EXPECT_FALSE(t.attributes().c_lflag & ECHO);
    EXPECT_EQ(run("show log level").substr(0, 16), "System log level");
    t.type("logout\n");
    EXPECT_EQ(t.wait_exit(), 0);
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}

TEST_F(EngineeringCommands, AShellThatIsKilledGivesTheLineBack)
{
    enter_shell();
    t.type("stty raw -echo; kill -9 $$\n");
    t.until("Ended by signal 9\n");
    t.until(kPrompt);
    ASSERT_TRUE(line_is_raw(true));
    t.type("logout\n");
    EXPECT_EQ(t.wait_exit(), 0);
    EXPECT_TRUE(same_attributes(t.attributes(), t.found()));
}

TEST_F(EngineeringCommands, OneShellCommandIsShownAndItsFailureToo)
{
    EXPECT_EQ(run("z_debug shell \"echo one; exit 3\""), "one\nExit status 3\nCommand> ");
}

TEST_F(EngineeringCommands, PingStopsAtCtrlC)
{
    if (access("/bin/ping", X_OK) != 0 && access("/usr/bin/ping", X_OK) != 0)
        GTEST_SKIP() << "no ping program on this machine";
    t.type("ping 127.0.0.1\n");
    t.until("PING 127.0.0.1");
    t.send("\x03");
    t.until("^C\n");
    t.until(kPrompt);
    EXPECT_EQ(run("show log level").substr(0, 16), "System log level");
}

TEST_F(EngineeringCommands, LosingTheLineWhilePingingEndsTheSession)
{
    if (access("/bin/ping", X_OK) != 0 && access("/usr/bin/ping", X_OK) != 0)
        GTEST_SKIP() << "no ping program on this machine";
    t.type("ping 127.0.0.1\n");
    t.until("PING 127.0.0.1");
    t.hang_up();
    EXPECT_EQ(t.wait_exit(), 0);
}

TEST_F(EngineeringCommands, WhatIsWrittenIsThereAfterSaveAndRestart)
{
    run("z_debug mac write 02-00-5e-00-00-77");
    run("z_debug prekey write 3 0a-1b-2c-3d-4e");
    run("z_debug wlanrd write 48");
    run("z_debug set port radio1 11b/g 13 lab");
    run("z_debug wanip 10.1.1.2 255.255.255.0 10.1.1.1");
    run("save config");
    service.restart();
    EXPECT_EQ(run("z_debug mac read"), "MAC address: 02-00-5E-00-00-77\nCommand> ");
    EXPECT_NE(run("z_debug prekey read").find("Preset key 3: 5 octets\n"), std::string::npos);
    EXPECT_TRUE(run("z_debug wlanrd read").starts_with("Regulatory domain: 48, Europe (ETSI)\n  11b/g "));
    const std::string system = run("show system");
    EXPECT_NE(system.find("ch(  13)  id(lab)\n"), std::string::npos) << system;
    EXPECT_NE(system.find("WAN IP/Netmask:          10.1.1.2/255.255.255.0\n"), std::string::npos) << system;
}

TEST_F(EngineeringCommands, AServiceThatIsGoneIsSaid)
{
    service.stop();
    for (const char* line : {"z_debug mac read", "z_debug prekey read", "z_debug wlanrd read", "z_debug add ssid lab",
                             "z_debug set port radio1 auto 0", "z_debug wanip 10.1.1.2 255.255.255.0 10.1.1.1"})
        EXPECT_EQ(run(line), "\aThe configuration service is not running\nCommand> ") << line;
}
}  // namespace
