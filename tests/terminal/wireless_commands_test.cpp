// The wireless commands that have a command line, typed on the console.
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>

#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr char kPrompt[] = "Command> ";
const std::string kFilterHead = "Filter Name     MAC address\n---------------------------------\n";

class WirelessCommands : public testing::Test {
protected:
    // What a line prints, without its own echo and the prompt behind it.
    static std::string run(Terminal& t, const std::string& line)
    {
        t.type(line + '\n');
        t.until(line + '\n');
        std::string printed = t.until(kPrompt);
        printed.resize(printed.size() - std::strlen(kPrompt));
        return printed;
    }

    // Up to the question that the answer brings.
    static void answer(Terminal& t, const std::string& text, const std::string& question)
    {
        t.type(text + '\n');
        t.until(question);
    }

    Service service;
};

TEST_F(WirelessCommands, TheMacFilterIsTypedSavedAndThereAfterARestart)
{
    Terminal t;
    t.log_in();
    EXPECT_EQ(run(t, "set mac filter mode deny"), "MAC filter mode: deny\n");
    const std::string longRow = "a name of 30 ch 02-00-5E-AA-BB-C1\naracters, long.\n";
    EXPECT_EQ(run(t, "add mac filter \"a name of 30 characters, long.\" 02-00-5e-aa-bb-c1"), kFilterHead + longRow);
    EXPECT_EQ(run(t, "add mac filter guest 02-00-5e-aa-bb-c1"), "\aThe MAC address has a filter already\n");
    EXPECT_EQ(run(t, "add mac filter guest 02-00-5e-aa-bb-c2"), kFilterHead + "guest           02-00-5E-AA-BB-C2\n");
    EXPECT_EQ(run(t, "add mac filter guest 02-00-5e-aa-bb-c3"), "\aThere is already a MAC filter of that name\n");
    EXPECT_EQ(run(t, "delete mac filter \"guest\""), "MAC filter guest is deleted.\n");
    EXPECT_EQ(run(t, "delete mac filter guest"),
              "\aThere is no MAC filter of that name\nDelete Mac Filter: guest Fail\n");
    EXPECT_EQ(run(t, "show mac filter guest"), kFilterHead);
    run(t, "save config");
    run(t, "set mac filter mode disable");

    service.stop();
    std::filesystem::remove_all(std::filesystem::path(Service::socket_path()).parent_path());  // as a restart does
    service.start();
    EXPECT_EQ(run(t, "show mac filter"), kFilterHead + longRow);
    EXPECT_EQ(run(t, "show mac filter mode"), "MAC filter mode: deny\n");
    service.stop();
    EXPECT_EQ(run(t, "show mac filter"), "\aThe configuration service is not running\n");
}

TEST_F(WirelessCommands, ARadiusServerIsAddedByItsQuestions)
{
    Terminal t;
    t.log_in();
    answer(t, "add radius server primary", " enter server IP (Unspecified): ");
    answer(t, "192.168.1.1", " Error: IP Address can not be the same as AP's IP");
    answer(t, "10.0.0.9", " enter port number (1812, 1-65535): ");
    answer(t, "1645", " enter shared secret: ");
    answer(t, "canary secret", " enable primary server (yes, yes/no): ");
    t.type("\n");
    EXPECT_NE(t.until(kPrompt).find("   Server IP: 10.0.0.9\n   Port Number: 1645\n   Shared Secret: canary secret"),
              std::string::npos);
    EXPECT_EQ(run(t, "set radius server retry 5"), "Radius server reattempt is 5 times.\n");
    EXPECT_EQ(run(t, "set radius server reattempt 5"), "Radius server reattempt is 5 minutes.\n");
    EXPECT_EQ(run(t, "enable radius mac authentication"), "RADIUS MAC access control is enabled\n");
    EXPECT_EQ(run(t, "disable radius server primary"), "Primary radius server is disabled.\n");
    EXPECT_EQ(run(t, "enable radius server secondary"), "Secondary radius server is enabled.\n");

    answer(t, "add radius server secondary", " enter server IP");
    t.type("\x03");  // abandoned
    t.until(kPrompt);
    service.kill();
    service.start();
    EXPECT_EQ(run(t, "show radius server"),
              "\n RADIUS Server                   State                IP/Port"
              "\n ----------------------------------------------------------------"
              "\n Primary                         Disabled                   10.0.0.9/1645 "
              "\n Secondary                       Enabled                   0.0.0.0/1812 "
              "\n\n RADIUS MAC Access Control: Enable\n"
              " RADIUS Server Retry:     5 times\n"
              " RADIUS Server reattempt: 5 minutes\n");
    EXPECT_NE(run(t, "show radius server primary").find("Shared Secret: canary secret\n"), std::string::npos);
    EXPECT_EQ(Service::log().find("canary"), std::string::npos);
}
}  // namespace
