// NAT, IP filters and interfaces as an operator sees them, from the key to the stored value.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <vector>

#include "support/service.h"
#include "support/terminal.h"

namespace {
constexpr std::string_view kPrompt = "Command> ";

class NatCommands : public testing::Test {
protected:
    NatCommands() { t.log_in(); }

    // What a line and its answers print, without the line's own echo and the prompt behind all.
    std::string run(const std::string& line, std::initializer_list<const char*> answers = {})
    {
        t.type(line + '\n');
        t.until(line + '\n');
        std::string printed;
        for (const char* answer : answers) {
            printed += t.until("): ");
            t.type(std::string(answer) + '\n');
        }
        printed += t.until(kPrompt);
        printed.resize(printed.size() - kPrompt.size());
        return printed;
    }
    bool shows(const std::string& line, const std::string& row) { return run(line).find(row) != std::string::npos; }

    static std::filesystem::path runtime() { return std::filesystem::path(Service::socket_path()).parent_path(); }
    static std::string rules()
    {
        std::ifstream file(runtime() / "firewall.nft");
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Service service;
    Terminal t;
};

constexpr char kDefault[] = " DMZ(DEFAULT)                   eth1            -               192.168.1.10\n";
constexpr char kHost[] = " cam                            eth1            203.0.113.9     192.168.1.33\n";
constexpr char kServer[] = " web                  eth1            tcp   8000-8009   9000-9009   192.168.1.20\n";
constexpr char kTrigger[] = " rtsp                 tcp   554   udp    6970-6999,80\n";
constexpr char kFilter[] = " telnet                         eth1            outbound  tcp\n"
                           "   source       192.168.1.0/255.255.255.0\n"
                           "   destination  any port 23\n";

TEST_F(NatCommands, WhatIsSetIsThereAfterSaveAndRestart)
{
    EXPECT_TRUE(run("enable nat eth1").starts_with(" NAT has been enabled.\n"));
    EXPECT_TRUE(run("add nat dmz default", {"", "192.168.1.10"}).ends_with(kDefault));
    EXPECT_TRUE(run("add nat mdmz cam", {"eth1", "203.0.113.9", "192.168.1.33"}).ends_with(kHost));
    EXPECT_TRUE(run("add nat redirect web", {"server", "", "tcp", "range", "8000", "8009", "", "9000", "192.168.1.20"})
                    .ends_with(kServer));
    EXPECT_TRUE(run("add nat redirect rtsp", {"trigger", "tcp", "554", "udp", "6970-6999", "yes", "80", "no"})
                    .ends_with(kTrigger));
    EXPECT_TRUE(run("add ip filter telnet",
                    {"", "out", "tcp", "network", "192.168.1.77", "255.255.255.0", "", "", "single", "23"})
                    .ends_with(kFilter));
    EXPECT_EQ(run("set ip filter eth1 grant"), " interface       default action\n"
                                               " eth1            grant (filters deny)\n");
    EXPECT_NE(rules().find("dport 23 drop"), std::string::npos);
    EXPECT_EQ(std::filesystem::status(runtime() / "firewall.nft").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);

    run("save config");
    run("disable nat eth1");
    run("delete nat redirect rtsp");
    run("delete ip filter telnet");
    run("set ip filter eth1 disable");
    EXPECT_EQ(rules().find("eth1"), std::string::npos);
    service.stop();
    std::filesystem::remove(runtime() / "running.json");
    service.start();

    EXPECT_TRUE(shows("show nat eth1", " eth1            enabled  "));
    for (const char* row : {kDefault, kHost, kServer, kTrigger}) EXPECT_TRUE(shows("show nat", row)) << row;
    EXPECT_TRUE(shows("show ip filter eth1", kFilter));
    EXPECT_TRUE(shows("show ip filter", " eth1            grant (filters deny)\n"));
    EXPECT_NE(rules().find("dport 23 drop"), std::string::npos);

    EXPECT_EQ(run("delete nat dmz default eth1"), " The default DMZ has been changed.\n");
    EXPECT_EQ(run("delete nat mdmz cam"), " The DMZ table has been changed.\n");
    EXPECT_EQ(run("delete nat redirect web"), " NAT redirection has been deleted.\n");
    EXPECT_FALSE(shows("show nat", "192.168.1."));
}

TEST_F(NatCommands, ShowsAnInterfaceInDetail)
{
    EXPECT_TRUE(shows("show interface eth0", " side:            system LAN\n"));
    EXPECT_TRUE(shows("show interface eth0", " IP address:      192.168.1.1\n"));
    EXPECT_TRUE(shows("show interface eth1", " port:            wan\n"));
    EXPECT_EQ(run("show interface eth99"), " no such interface!\n");
    EXPECT_TRUE(shows("show interface statistics", "rx-packet")) << "a keyword wins over a name";
}

struct Refused {
    const char *line, *message;
};
constexpr Refused kRefused[] = {
    {"show nat sixteen-letters!", "up to 15"},
    {"show nat eth0", "There is no WAN interface of that name"},
    {"enable nat eth0", "There is no WAN interface of that name"},
    {"disable nat eth9", "There is no WAN interface of that name"},
    {"delete nat dmz default eth1", "There is no NAT entry of that name"},
    {"delete nat dmz default eth0", "There is no WAN interface of that name"},
    {"add nat mdmz DMZ(DEFAULT)", "Name already in use"},
    {"add nat mdmz a-name-of-thirty-one-characters", "up to 30"},
    {"delete nat mdmz none", "There is no NAT entry of that name"},
    {"add nat redirect a-name-of-thirty-one-characters", "up to 30"},
    {"delete nat redirect none", "There is no NAT entry of that name"},
    {"add ip filter a-name-of-thirty-one-characters", "up to 30"},
    {"delete ip filter none", "There is no IP filter of that name"},
    {"show ip filter eth9", "no such interface!"},
    {"set ip filter eth9 deny", "There is no such interface"},
    {"set ip filter eth1 permit", "Default action must be grant, deny or disable"},
    {"show interface sixteen-letters!", "up to 15"},
};

TEST_F(NatCommands, SayWhatIsWrong)
{
    for (const Refused& each : kRefused) {
        EXPECT_NE(run(each.line).find(each.message), std::string::npos) << each.line;
        t.type("\x03");  // a line that the editor refuses stays for correction
        t.until(kPrompt);
    }
}

TEST_F(NatCommands, GiveUpWithoutAChange)
{
    t.type("add nat redirect web\n");
    t.until("server/trigger): ");
    t.type("\n");
    t.until("(eth1): ");
    t.type("\x03");
    t.until(kPrompt);
    EXPECT_FALSE(shows("show nat", " web "));
}

TEST_F(NatCommands, EndAtThePromptWithoutTheService)
{
    constexpr char kGone[] = "The configuration service is not running\n";
    t.type("add nat redirect web\n");
    for (const char* answer : {"", "", "", "", "80", "", ""}) {
        t.until("): ");
        t.type(std::string(answer) + '\n');
    }
    t.until("server IP address (Unspecified): ");
    service.stop();
    t.type("192.168.1.20\n");
    EXPECT_NE(t.until(kPrompt).find(kGone), std::string::npos);

    for (const char* line : {"show nat", "show nat eth1", "enable nat eth1", "disable nat eth1", "add nat dmz default",
                             "delete nat dmz default eth1", "add nat mdmz cam", "delete nat mdmz cam",
                             "add nat redirect web", "delete nat redirect web", "add ip filter f", "delete ip filter f",
                             "show ip filter", "show ip filter eth1", "set ip filter eth1 deny", "show interface eth1"})
        EXPECT_EQ(run(line), std::string("\a") + kGone) << line;

    service.start();
    EXPECT_FALSE(shows("show nat", " web "));
}
}  // namespace
