// Areas as an operator sees them, command by command: what is added, refused, shown and gone again.
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
const std::string kFilterHead = "Filter Name     MAC address\n---------------------------------\n";
const std::string kLongName = "a name of 30 ch 02-00-5E-AA-BB-C1\naracters, long.\n";
const std::string kNoWan = "\aThere is no WAN interface of that name\n";
const std::string kNoEntry = "\aThere is no NAT entry of that name\n";
const std::string kServer = " web                  eth1            tcp   8000-8009   9000-9009   192.168.1.20\n";

// clang-format off
const Area kAreas[] = {
    {"Dhcp", {
        {"set dhcp server", {"192.168.1.200", "", "", "", "no"}, "\aThe addresses of the pool are not a range of hosts in one network\n"},
        {"add dhcp static 192.168.1.7 02-00-5e-10-00-aa", {},    kReservedHead + kOffice},
        {"add dhcp static 10.1.2.3 02-00-5e-10-00-ab", {},       kReservedHead + kOffice + kFar},
        {"add dhcp static 10.1.2.3 02-00-5e-10-00-ac", {},       kReservedTwice},
        {"add dhcp static 10.1.2.4 02-00-5e-10-00-aa", {},       kReservedTwice},
        {"delete dhcp static 10.1.2.4", {},                      "\aThere is no static DHCP entry of that address\n"},
        {"delete dhcp static 192.168.1.7", {},                   kReservedHead + kFar},
        {"show dhcp client table", {},                           "Network\n" + std::string(78, '-') + "\n"},  // no lease is made up
    }},
    {"MacFilter", {
        {"set mac filter mode deny", {},                         "MAC filter mode: deny\n"},
        {"add mac filter \"a name of 30 characters, long.\" 02-00-5e-aa-bb-c1", {}, kFilterHead + kLongName},
        {"add mac filter guest 02-00-5e-aa-bb-c2", {},           kFilterHead + "guest           02-00-5E-AA-BB-C2\n"},
        {"add mac filter guest 02-00-5e-aa-bb-c3", {},           "\aThere is already a MAC filter of that name\n"},
        {"delete mac filter \"guest\"", {},                      "MAC filter guest is deleted.\n"},
        {"delete mac filter guest", {},                          "\aThere is no MAC filter of that name\nDelete Mac Filter: guest Fail\n"},
        {"show mac filter", {},                                  kFilterHead + kLongName},
    }},
    {"Nat", {
        {"enable nat eth0", {},                                  kNoWan},
        {"delete nat dmz default eth1", {},                      kNoEntry},
        {"add nat mdmz DMZ(DEFAULT)", {},                        error_line("Name already in use")},
        {"add nat dmz default", {"", "192.168.1.10"},            " DMZ(DEFAULT)                   eth1            -               192.168.1.10\n"},
        {"add nat redirect web", {"server", "", "tcp", "range", "8000", "8009", "", "9000", "192.168.1.20"}, kServer},
        {"add nat redirect rtsp", {"trigger", "tcp", "554", "udp", "6970-6999", "yes", "80", "no"},
                                                                 " rtsp                 tcp   554   udp    6970-6999,80\n"},
        {"delete nat dmz default eth1", {},                      " The default DMZ has been changed.\n"},
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
}
INSTANTIATE_TEST_SUITE_P(Lines, AreaCommands, testing::ValuesIn(kAreas), [](const auto& a) { return a.param.name; });

using Commands = DialogueSession;

TEST_F(Commands, ShowInterfaceTellsItAll)
{
    for (const auto& [line, part] : {std::pair{"show interface eth0", " IP address:      192.168.1.1\n"},
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
