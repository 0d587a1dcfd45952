// The commands that no line reaches, called as the dispatch table has them, on the real service.
#include <cstring>
#include <gtest/gtest.h>

#include "commands/running_action.h"
#include "support/service.h"
#include "support/terminal.h"

namespace {
class DispatchedCommands : public testing::Test {
protected:
    Service service;
};

TEST_F(DispatchedCommands, TheRadioIsSetByItsQuestions)
{
    RunningAction set(53);
    const std::string printed =
        set.play({"my network", "yes", "japan", "14", "yes", "64", "yes", "canary", "4", "", "", "", "2"});
    EXPECT_TRUE(printed.starts_with(" enter network name (development): ")) << printed;
    EXPECT_EQ(set.call.stage, 0u);
    EXPECT_FALSE(printed.find("\a") != printed.npos) << printed;

    service.restart();
    const std::string shown = RunningAction(53).play({"", "", "", "", "", "", "no", ""});
    for (const char* each : {"(my network)", "(yes, yes/no)", "(japan,", "(14, 1-13)", "select WEP key length (64"})
        EXPECT_NE(shown.find(each), shown.npos) << each << shown;
    EXPECT_NE(shown.find(" enter WEP key1 ("), shown.npos);
    EXPECT_EQ(shown.find(" enter WEP key1 (Unspecified)"), shown.npos) << "the generated key is there";
    EXPECT_EQ(Service::log().find("canary"), std::string::npos);

    RunningAction refused(53);
    refused.play({"", "", "france", "10", "no", "", "", "", ""});
    EXPECT_EQ(refused.call.stage, 0u);
    Terminal t;
    t.log_in();
    t.type("show system\n");
    t.until("ch(  10)  id(my network)");  // the same radio
}

TEST_F(DispatchedCommands, PeersAndOperationMode)
{
    const std::string head = "Peer Name                  Mac Address\r\n---------------------------------------\r\n";
    EXPECT_EQ(RunningAction(107).run(), head);
    EXPECT_EQ(RunningAction(7).text("roof").mac("02-00-5e-aa-bb-c1").run().substr(0, 9), "Peer Name");
    EXPECT_EQ(RunningAction(7).text("roof").mac("02-00-5e-aa-bb-c2").run(),
              "\aThere is already a WDS peer of that name\n");
    EXPECT_EQ(RunningAction(107).run(), head + "roof                       02-00-5E-AA-BB-C1 \r\n");
    EXPECT_EQ(RunningAction(19).text("roof").run(), "WDS Peer roof is deleted!\n");
    EXPECT_EQ(RunningAction(19).text("roof").run(), "\aThere is no WDS peer of that name\n");

    RunningAction repeater(52);
    EXPECT_EQ(repeater.number(3).run(), " enter MAC address (Unspecified): ");
    EXPECT_EQ(repeater.answer("02-00-5e-aa-bb-c1"), "Operation mode: repeater\r\n");
    EXPECT_EQ(RunningAction(52).number(1).run(), "Operation mode: accesspoint\r\n");
    EXPECT_EQ(RunningAction(95).run(), "Operational mode         : accesspoint\r\n");
    RunningAction again(52);
    again.number(3).run();
    EXPECT_EQ(again.answer(""), "Operation mode: repeater\r\n");
    EXPECT_EQ(RunningAction(94).run(), "The Repeater AP is set to engineering 02-00-5e-aa-bb-c1\r\n");
    EXPECT_EQ(RunningAction(15).run(), "\aThere is no RADIUS server of that name\n");
}

TEST_F(DispatchedCommands, ClientsAndPorts)
{
    EXPECT_EQ(RunningAction(109).run(), "MAC Address          State\n"
                                        "----------------------------------\n"
                                        "02-00-5E-20-00-01    Authorized\n"
                                        "02-00-5E-20-00-02    Associated\n"
                                        "02-00-5E-20-00-03    Deny by ACL\n"
                                        "02-00-5E-20-00-04    Authorized\n");
    EXPECT_EQ(RunningAction(12).run(), "statistics counter of wireless client(s) cleared.\n");
    service.restart();
    EXPECT_NE(RunningAction(108).run().find("02-00-5E-20-00-01    0          0          0          0\n"),
              std::string::npos);
    const std::string ports = RunningAction(86).run();
    for (const char* each :
         {"\nlan  ", "\nwan         n/a", "\nwlan        02-00-5e-10-00-10  wlan            Down \n"})
        EXPECT_NE(ports.find(each), ports.npos) << each << ports;
    EXPECT_EQ(RunningAction(11).run(), "\aThis device has no such radio\n") << "this machine has no wlan0";
}
}  // namespace
