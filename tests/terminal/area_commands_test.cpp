// Areas as an operator sees them, command by command: what is added, refused, shown and gone again.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <regex.h>
#include <sstream>

#include "terminal/dialogue_session.h"

namespace {
struct Line {
    const char* typed;
    std::vector<std::string> answers;
    std::string end;  // of what they print
};
struct Area {
    const char* name;
    std::vector<Line> lines;
};
void PrintTo(const Area& area, std::ostream* out) { *out << area.name; }

const std::string kReservedHead = "IP Address        MAC Address \n------------------------------------\n";
const std::string kOffice = "192.168.1.7       02-00-5e-10-00-aa\n", kFar = "10.1.2.3          02-00-5e-10-00-ab\n";
const std::string kReservedTwice = "\aThe IP or MAC address has a static DHCP entry already\n";
const std::string kLanRefused = "The IP address or gateway is not a host address of its network\n";
const std::string kFilterHead = "Filter Name     MAC address\n---------------------------------\n";
const std::string kLongName = "a name of 30 ch 02-00-5E-AA-BB-C1\naracters, long.\n";
const std::string kNoWan = "\aThere is no WAN interface of that name\n";
const std::string kNoEntry = "\aThere is no NAT entry of that name\n";
const std::string kServer = " web                  eth1            tcp   8000-8009   9000-9009   192.168.1.20\n";

// clang-format off
const Area kAreas[] = {
    {"Dhcp", {
        {"set dhcp server", {"192.168.1.200", "", "", "", "no"}, "\aThe addresses of the pool are not a range of hosts in one network\n"},
        {"show dhcp server", {}, "1440 minutes\n        Gateway IP address: 192.168.1.1\n        Primary DNS IP address:   0.0.0.0\n"
                                 "        Secondary DNS IP address: 0.0.0.0\n"},
        {"add dhcp static 192.168.1.7 02-00-5e-10-00-aa", {},    kReservedHead + kOffice},
        {"add dhcp static 10.1.2.3 02-00-5e-10-00-ab", {},       kReservedHead + kOffice + kFar},
        {"add dhcp static 10.1.2.3 02-00-5e-10-00-ac", {},       kReservedTwice},
        {"add dhcp static 10.1.2.4 02-00-5e-10-00-aa", {},       kReservedTwice},
        {"add dhcp static 224.0.0.1 02-00-5e-10-00-ac", {},      "\aAn address or setting of the DHCP server is not acceptable\n"},
        {"delete dhcp static 10.1.2.4", {},                      "\aThere is no static DHCP entry of that address\n"},
        {"delete dhcp static 192.168.1.7", {},                   kReservedHead + kFar},
        {"show dhcp client table", {},                           "Network\n" + std::string(78, '-') + "\n"},  // no lease is made up
    }},
    {"LanAddress", {
        {"set system ip", {"", "192.168.1.0", "", "192.168.1.254", ""},   kLanRefused},
        {"set system ip", {"", "127.0.0.1", "", "127.0.0.2", ""},         kLanRefused},
    }},
    {"MacFilter", {
        {"set mac filter mode deny", {},                         "MAC filter mode: deny\n"},
        {"add mac filter \"a name of 30 characters, long.\" 02-00-5e-aa-bb-c1", {}, kFilterHead + kLongName},
        {"add mac filter guest 02-00-5e-aa-bb-c1", {},           "\aThe MAC address has a filter already\n"},
        {"add mac filter guest 02-00-5e-aa-bb-c2", {},           kFilterHead + "guest           02-00-5E-AA-BB-C2\n"},
        {"add mac filter guest 02-00-5e-aa-bb-c3", {},           "\aThere is already a MAC filter of that name\n"},
        {"delete mac filter \"guest\"", {},                      "MAC filter guest is deleted.\n"},
        {"delete mac filter guest", {},                          "\aThere is no MAC filter of that name\nDelete Mac Filter: guest Fail\n"},
        {"show mac filter guest", {},                            kFilterHead},
        {"show mac filter", {},                                  kFilterHead + kLongName},
    }},
    {"Radius", {
        {"set radius server retry 5", {},                        "Radius server reattempt is 5 times.\n"},
        {"set radius server reattempt 5", {},                    "Radius server reattempt is 5 minutes.\n"},
        {"enable radius mac authentication", {},                 "RADIUS MAC access control is enabled\n"},
        {"disable radius server primary", {},                    "Primary radius server is disabled.\n"},
        {"enable radius server secondary", {},                   "Secondary radius server is enabled.\n"},
        {"show radius server", {},
         "\n RADIUS Server                   State                IP/Port"
         "\n ----------------------------------------------------------------"
         "\n Primary                         Disabled                   0.0.0.0/1812 "
         "\n Secondary                       Enabled                   0.0.0.0/1812 "
         "\n\n RADIUS MAC Access Control: Enable\n RADIUS Server Retry:     5 times\n RADIUS Server reattempt: 5 minutes\n"},
    }},
    {"Nat", {
        {"enable nat eth0", {},                                  kNoWan},
        {"show nat eth0", {},                                    kNoWan},
        {"delete nat dmz default eth0", {},                      kNoWan},
        {"delete nat dmz default eth1", {},                      kNoEntry},
        {"delete nat mdmz none", {},                             kNoEntry},
        {"delete nat redirect none", {},                         kNoEntry},
        {"add nat mdmz DMZ(DEFAULT)", {},                        error_line("Name already in use")},
        {"add nat dmz default", {"", "192.168.1.10"},            " DMZ(DEFAULT)                   eth1            -               192.168.1.10\n"},
        {"add nat mdmz cam", {"eth1", "203.0.113.9", "192.168.1.33"},
                                                                 " cam                            eth1            203.0.113.9     192.168.1.33\n"},
        {"add nat redirect web", {"server", "", "tcp", "range", "8000", "8009", "", "9000", "192.168.1.20"}, kServer},
        {"add nat redirect rtsp", {"trigger", "tcp", "554", "udp", "6970-6999", "yes", "80", "no"},
                                                                 " rtsp                 tcp   554   udp    6970-6999,80\n"},
        {"delete nat redirect rtsp", {},                         " NAT redirection has been deleted.\n"},
        {"delete nat mdmz cam", {},                              " The DMZ table has been changed.\n"},
        {"delete nat dmz default eth1", {},                      " The default DMZ has been changed.\n"},
    }},
    {"Management", {
        {"set telnet port 80", {},                               error_line("Port number is already in use")},
        {"enable ping eth1", {},                                 " name            internet ping\n eth1            enabled\n"},
        {"show ping eth9", {},                                   "\aThere is no interface of that name\n"},
        {"set community string write not-for-eyes", {},          "********\n"},
        {"show snmp", {},                                        "(read-write): ********\n   Trap managers:                 0\n"},
        {"show trap manager nobody", {},                         "\aThere is no trap manager of that name\n"},
    }},
};
// clang-format on
class AreaCommands : public DialogueSession, public testing::WithParamInterface<Area> {};
TEST_P(AreaCommands, SayWhatTheyDid)
{
    for (const Line& each : GetParam().lines) {
        const std::string printed = run(each.typed, each.answers);
        EXPECT_TRUE(printed.ends_with(each.end)) << each.typed << '\n' << printed;
    }
    EXPECT_EQ(Service::log().find("not-for-eyes"), std::string::npos);
}
INSTANTIATE_TEST_SUITE_P(Lines, AreaCommands, testing::ValuesIn(kAreas), [](const auto& a) { return a.param.name; });

class Commands : public DialogueSession {
protected:
    static std::filesystem::path rule_file()
    {
        return std::filesystem::path(Service::socket_path()).parent_path() / "firewall.nft";
    }
    static std::string rules()
    {
        std::ifstream file(rule_file());
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(Commands, IpFiltersBecomeRules)
{
    EXPECT_TRUE(run("add ip filter telnet",
                    {"", "out", "tcp", "network", "192.168.1.77", "255.255.255.0", "", "", "single", "23"})
                    .ends_with(" telnet                         eth1            outbound  tcp\n"
                               "   source       192.168.1.0/255.255.255.0\n"
                               "   destination  any port 23\n"));
    EXPECT_EQ(run("set ip filter eth1 grant"), " interface       default action\n"
                                               " eth1            grant (filters deny)\n");
    EXPECT_NE(rules().find("dport 23 drop"), std::string::npos);
    EXPECT_EQ(std::filesystem::status(rule_file()).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    run("delete ip filter telnet");
    EXPECT_EQ(rules().find("dport 23"), std::string::npos);
}

TEST_F(Commands, ShowInterfaceTellsItAll)
{
    for (const auto& [line, part] : {std::pair{"show interface eth0", " side:            system LAN\n"},
                                     {"show interface eth0", " IP address:      192.168.1.1\n"},
                                     {"show interface eth1", " port:            wan\n"},
                                     {"show interface eth99", " no such interface!\n"},
                                     {"show interface statistics", "rx-packet"}})
        EXPECT_NE(run(line).find(part), std::string::npos) << line << part;
}

bool matches(const std::string& line, const std::string& pattern)
{
    regex_t expression;
    if (regcomp(&expression, ("^" + pattern + "$").c_str(), REG_EXTENDED | REG_NOSUB) != 0) return false;
    const bool found = regexec(&expression, line.c_str(), 0, nullptr, 0) == 0;
    regfree(&expression);
    return found;
}

// What this machine has (addresses, up time) by its form, everything else as it stands on the screen.
TEST_F(Commands, ShowSystemIsLaidOutSo)
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
}  // namespace
