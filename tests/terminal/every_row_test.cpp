// Every row of the command table, typed into the real console at the real service. The lines are made from the table,
// so a row that is added to it is walked too.
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <vector>

#include "cli/command_rows.h"
#include "cli/shortest_words.h"
#include "support/own_network.h"
#include "support/service.h"
#include "support/terminal.h"

namespace {
using enum Token;

constexpr char kPrompt[] = "Command> ", kCtrlC[] = "\x03", kShellGreeting[] = "returns to the console\n";
constexpr char kGone[] = "The configuration service is not running\n";
constexpr char kNoRecord[] = "Command dispatch entry not found\n";
constexpr std::uint32_t kChangePassword = 8, kZDebugAlone = 176, kZShell = 191;

// The device of these tests: what is set reaches its own network and nothing else.
constexpr char kDevice[] = "{ echo 1 > /proc/sys/net/ipv6/conf/all/disable_ipv6; } 2>/dev/null; "
                           "ip link set eth0 up && ip link set eth1 up && "
                           "ip addr add 192.168.1.1/24 dev eth0 && ip addr add 10.9.0.2/30 dev eth1";

// clang-format off
const std::map<Token, const char*> kSamples = {
    {pmString15,        "walked"},
    {pmString30,        "walked"},
    {pmString60,        "\"echo walked\""},  // as good a contact as a shell command
    {pmString63,        "0a-1b-2c-3d-4e"},
    {pmHopCounts,       "5"},
    {pmTCPUDPPort,      "2323"},
    {pmTimeout,         "25"},
    {pmMACAddress,      "02-00-5e-00-00-21"},
    {pmReattempt,       "30"},
    {pmRetry,           "3"},
    {pmIPAddress,       "192.168.1.33"},
    {pmDestIP,          "10.20.0.0"},
    {pmDestNetmask,     "255.255.0.0"},
    {pmGatewayOrIfName, "10.9.0.1"},
    {pmGatewayAddress,  "10.9.0.1"},
    {pmLogLevel,        "3"},
    {pmFacility,        "wireless"},
    {pmMACFilterMode,   "grant"},
    {pmInterfaceName,   "eth1"},
    {pmNatMdmzName,     "walked"},
    {pmNatRedirectName, "walked"},
    {pmIpFilterName,    "walked"},
    {pmIpFilterAction,  "grant"},
    {pmChannel,         "0"},
    {pmDecInt,          "48"},
};

// Values that are refused: by the parser, before the rest of the line is looked at, or by the command.
enum class By { parser, command };
struct Bad { Token type; const char* value; By by; const char* message; };
constexpr char kSixteen[] = "sixteen-letters!", kThirtyOne[] = "a-name-of-thirty-one-characters";
constexpr Bad kBad[] = {
    {pmString15,        kSixteen,           By::parser,  "up to 15"},
    {pmString30,        kThirtyOne,         By::parser,  "up to 30"},
    {pmString60,        "a-text-of-sixty-one-characters-that-no-contact-could-fill-up.", By::parser, "up to 60"},
    {pmString63,        "a-text-of-sixty-four-characters-that-is-no-key-in-any-notation..", By::parser, "up to 63"},
    {pmString63,        "no-key",           By::command, "5 or 13 hexadecimal octets"},
    {pmHopCounts,       kSixteen,           By::parser,  "up to 15"},
    {pmHopCounts,       "256",              By::command, "The hop count is above 255"},
    {pmTCPUDPPort,      "65536",            By::parser,  "TCP and UDP use 16-bit port numbers"},
    {pmTimeout,         "61",               By::parser,  "1 to 60 minutes"},
    {pmMACAddress,      "02-00-5e-00-00",   By::parser,  "MAC address format must be"},
    {pmReattempt,       "4",                By::parser,  "Error: "},
    {pmRetry,           "6",                By::parser,  "Error: "},
    {pmIPAddress,       "192.168.1.256",    By::parser,  "Invalid IP address"},
    {pmDestIP,          "10.20",            By::parser,  "Error: "},
    {pmDestNetmask,     "255.255.0.256",    By::parser,  "Error: "},
    {pmGatewayOrIfName, "eth9",             By::command, "There is no such interface"},
    {pmGatewayAddress,  "8.8.8.8",          By::command, "The gateway is not on a network of this device"},
    {pmLogLevel,        "8",                By::parser,  "Error: "},
    {pmFacility,        "nothing",          By::command, "Syslog facility should be one of those listed"},
    {pmMACFilterMode,   "allow",            By::parser,  "MAC filter mode should be"},
    {pmInterfaceName,   kSixteen,           By::parser,  "up to 15"},
    {pmInterfaceName,   "eth9",             By::command, "interface"},
    {pmNatMdmzName,     kThirtyOne,         By::parser,  "up to 30"},
    {pmNatRedirectName, kThirtyOne,         By::parser,  "up to 30"},
    {pmIpFilterName,    kThirtyOne,         By::parser,  "up to 30"},
    {pmIpFilterAction,  "permit",           By::command, "Default action must be"},
    {pmChannel,         "999",              By::command, "Channel number should follow the range"},
    {pmDecInt,          "4x",               By::parser,  "Invalid decimal value"},
};

// Where a row does not take the samples, what it asks, and whether it needs the service: for what it does, or only
// behind its questions.
enum class Needs { service, serviceBehindQuestions, nothing };
struct Step { const char *shown, *keys; };
struct Job {
    std::vector<const char*> parameters{};
    std::vector<Step> steps{};
    Needs needs = Needs::service;
};
constexpr Step kEnter{"): ", "\n"};
const std::vector<Step> kRadius = {{"): ", "10.9.0.1\n"}, kEnter, {"shared secret: ", "walked\n"}, kEnter};
const std::map<std::uint32_t, Job> kJobs = {
    {3,   {.steps = kRadius}},
    {4,   {.steps = kRadius}},
    {8,   {.steps = {{"old password: ", "admin\n"}, {"new password: ", "walked\n"}, {"new password: ", "walked\n"}}}},
    {9,   {.steps = {{"(y/n)?", "n\n"}}, .needs = Needs::nothing}},
    {38,  {.steps = {{"information: ", "4\n"}, {"information: ", kCtrlC}}, .needs = Needs::nothing}},
    {39,  {.needs = Needs::nothing}},
    {40,  {.parameters = {"127.0.0.1"}, .steps = {{"PING 127.0.0.1", kCtrlC}}, .needs = Needs::nothing}},
    {42,  {.steps = {{"(Yes/No) : ", "no\n"}}, .needs = Needs::nothing}},
    {47,  {.steps = {kEnter, kEnter, kEnter, kEnter, {"yes/no): ", "no\n"}}}},
    {48,  {.parameters = {"8080"}, .steps = {{"yes/no):", "yes\n"}}}},
    {68,  {.steps = {kEnter, kEnter, kEnter, kEnter, kEnter}}},
    {96,  {.needs = Needs::nothing}},
    {100, {.needs = Needs::nothing}},  // shows what it has
    {139, {.steps = {kEnter, {"): ", "192.168.1.10\n"}}}},
    {141, {.steps = {kEnter, {"): ", "203.0.113.9\n"}, {"): ", "192.168.1.33\n"}}}},
    {143, {.steps = {kEnter, kEnter, kEnter, kEnter, {"): ", "80\n"}, kEnter, kEnter, {"): ", "192.168.1.20\n"}}}},
    {145, {.steps = {kEnter, kEnter, kEnter, kEnter, kEnter}}},
    {162, {.steps = {{"): ", "yes\n"}, {"): ", "home\n"}, {"): ", "fred\n"}, {"): ", "not-for-eyes\n"}}}},
    {171, {.steps = {kEnter, kEnter, {"): ", "time.example\n"}, kEnter, kEnter}}},
    {176, {.needs = Needs::nothing}},
    {179, {.steps = {{"(Yes/No) : ", "yes\n"}}, .needs = Needs::nothing}},
    {180, {.parameters = {"10.9.0.2", "255.255.255.252", "10.9.0.1"}}},
    {182, {.parameters = {"radio1", "auto", "0", "walked"}}},
    {184, {.needs = Needs::nothing}},
    {188, {.parameters = {"3", "0a-1b-2c-3d-4e"}}},
    {189, {.steps = {{"(Yes/No) : ", "yes\n"}}, .needs = Needs::serviceBehindQuestions}},
    {190, {.steps = {{"(Yes/No) : ", "yes\n"}}, .needs = Needs::serviceBehindQuestions}},
    {191, {.needs = Needs::nothing}},
};

// Rows that ring on a device on which nothing was set before, and what they then say.
const std::map<std::uint32_t, const char*> kRinging = {
    {25,  "Syslog facility is already disabled"},
    {38,  "^C"},
    {105, "There is no trap manager of that name"},
    {160, "Hostname must not be empty"},
};
// Rows that show the status of an answer that never came, on purpose.
constexpr char kNoReason[] = "The request failed, no reason was given\n";
constexpr std::uint32_t kSetContact = 67, kSetLocation = 69;

// What is set, and a row that shows it with a piece of what it shows then.
struct Setting { const char *line, *shownBy, *shown; };
constexpr Setting kSettings[] = {
    {"set system name walked",              "show system",                "System Name: walked "},
    {"set system contact \"the porter\"",   "show system",                "contact:          the porter\n"},
    {"set system location attic",           "show system",                "location:         attic\n"},
    {"set prompt walked",                   "show system",                "H/W Version: "},  // the next session has it
    {"z_debug wanip 10.9.0.2 255.255.255.252 10.9.0.1", "show system",    "WAN IP/Netmask:          10.9.0.2/255.255.255.252\n"},
    {"z_debug add ssid walked",             "show system",                "id(walked)\n"},
    {"z_debug set port radio2 11a 40 lab",  "show system",                "ch(  40)  id(lab)\n"},
    {"z_debug mac write 02-00-5e-00-00-77", "z_debug mac read",           "MAC address: 02-00-5E-00-00-77\n"},
    {"z_debug prekey write 3 0a-1b-2c-3d-4e", "z_debug prekey read",      "Preset key 3: 5 octets\n"},
    {"set http port 8080",                  "show http",                  "HTTP port:   8080 "},
    {"set http timeout 25",                 "show http",                  "Timeout: 25 mins\n"},
    {"set telnet port 2323",                "show telnet",                "Telnet port: 2323 "},
    {"set telnet timeout 35",               "show telnet",                "Timeout: 35 mins\n"},
    {"enable upnp",                         "show upnp",                  "enabled\n"},
    {"enable ping eth1",                    "show ping",                  " eth1            enabled\n"},
    {"enable snmp",                         "show snmp",                  "SNMP:                          enabled\n"},
    {"set community string write walked",   "show snmp",                  "********"},
    {"set community string read lab",       "show community string read", "lab\n"},
    {"set log level 3",                     "show log level",             "System log level: 3\n"},
    {"disable log nat",                     "show log level",             "\nnat         disabled "},
    {"enable trace dhcp 4",                 "show log level",             "\ndhcp        enabled     level 4\n"},
    {"set syslogd 192.168.1.33",            "show syslogd",               "192.168.1.33\n"},
    {"enable syslogd",                      "show syslogd",               "Remote syslog:            enabled\n"},
    {"set mac filter mode grant",           "show mac filter mode",       "MAC filter mode: grant\n"},
    {"add mac filter walked 02-00-5e-00-00-21", "show mac filter",        "walked          02-00-5E-00-00-21\n"},
    {"add radius server primary",           "show radius server primary", "Server IP: 10.9.0.1\n"},
    {"add radius server secondary",         "show radius server secondary", "Server IP: 10.9.0.1\n"},
    {"disable radius server secondary",     "show radius server secondary", "State: Disabled\n"},
    {"set radius server reattempt 45",      "show radius server",         "reattempt: 45 minutes\n"},
    {"set radius server retry 4",           "show radius server",         "Retry:     4 times\n"},
    {"enable radius mac authentication",    "show radius server",         "Access Control: Enable\n"},
    {"set dhcp server",                     "show dhcp server",           "192.168.1.100 to 192.168.1.199\n"},
    {"disable dhcp server",                 "show dhcp server",           "DHCP server status:       disabled\n"},
    {"add dhcp static 192.168.1.33 02-00-5e-00-00-21", "show dhcp static", "192.168.1.33      02-00-5e-00-00-21\n"},
    {"set ntp client",                      "show ntp client",            "time.example"},
    {"enable nat eth1",                     "show nat",                   " eth1            enabled "},
    {"add nat dmz default",                 "show nat",                   "192.168.1.10\n"},
    {"add nat mdmz walked",                 "show nat",                   "203.0.113.9     192.168.1.33\n"},
    {"add nat redirect walked",             "show nat",                   "192.168.1.20\n"},
    {"add ip filter walked",                "show ip filter",             " walked                         eth1 "},
    {"set ip filter eth1 grant",            "show ip filter",             " eth1            grant "},
    {"add ip route 10.20.0.0 255.255.0.0 10.9.0.1 5", "show system ip",   "Default gateway IP address: "},
    {"add ip default route 10.9.0.1",       "show system ip",             "Default gateway IP address: 10.9.0.1\n"},
    {"change password",                     "show http",                  "HTTP port: "},  // the next session needs it
};
// clang-format on

Job job_of(const CliCmdRow& row)
{
    const auto found = kJobs.find(row.cmdId);
    return found == kJobs.end() ? Job{} : found->second;
}
bool takes_parameters(const CliCmdRow& row)
{
    return std::ranges::any_of(row.tokens, [](Token t) { return t != none && !is_word(t); });
}
// The commands of the routing protocol have no actions in this product.
bool has_record(const CliCmdRow& row) { return row.cmdId < 119 || row.cmdId > 130; }
// What lists its own values when it is typed without them.
bool lists_values(const CliCmdRow& row) { return (row.cmdId == 186 || row.cmdId == 188) && !takes_parameters(row); }

using Words = std::vector<std::string>;
Words words_of(const CliCmdRow& row, std::string (*spelled)(const CliCmdRow&, std::size_t))
{
    Words words;
    const Job job = job_of(row);
    auto own = job.parameters.begin();
    for (std::size_t at = 0; at < row.tokens.size() && row.tokens[at] != none; ++at) {
        if (is_word(row.tokens[at]))
            words.push_back(spelled(row, at));
        else if (own != job.parameters.end())
            words.push_back(*own++);
        else
            words.push_back(kSamples.contains(row.tokens[at]) ? kSamples.at(row.tokens[at]) : "1");
    }
    return words;
}
std::string whole_word(const CliCmdRow& row, std::size_t at) { return keyword_text(row.tokens[at]); }

std::string joined(const Words& words)
{
    std::string line;
    for (const std::string& each : words) line += (line.empty() ? "" : " ") + each;
    return line;
}
bool has(const std::string& printed, const char* text) { return printed.find(text) != std::string::npos; }

std::string running_configuration()
{
    std::ifstream file(Service::socket_path().substr(0, Service::socket_path().rfind('/')) + "/running.json");
    return {std::istreambuf_iterator<char>(file), {}};
}

class Operator {
public:
    Operator() { t.log_in(); }

    // What the line and the answers to its questions print, behind the line's own echo.
    std::string run(const std::string& line, const std::vector<Step>& steps = {})
    {
        t.type(line + '\n');
        t.until("\n");
        std::string printed;
        for (const Step& each : steps) {
            printed += t.until(each.shown);
            t.type(each.keys);
        }
        printed += t.until(kPrompt);
        return printed.substr(0, printed.size() - (sizeof kPrompt - 1));
    }
    std::string run_row(const CliCmdRow& row, const Words& words)
    {
        return row.cmdId == kZShell ? run_shell(joined(words)) : run(joined(words), job_of(row).steps);
    }
    // A line that the editor refuses stays for correction.
    std::string run_refused(const std::string& line)
    {
        const std::string printed = run(line);
        t.type(kCtrlC);
        t.until(kPrompt);
        return printed;
    }
    void log_out(const std::string& line)
    {
        t.type(line + '\n');
        t.until("Logged out, Good-Bye!\n");
        EXPECT_EQ(t.wait_exit(), 0) << t.screen().text();
    }

    Service service;
    Terminal t{TerminalOptions{.rows = 60, .columns = 200}};

private:
    std::string run_shell(const std::string& line)
    {
        t.type(line + '\n');
        const std::string printed = t.until(kShellGreeting);
        for (const Deadline deadline(kPatience); !(t.attributes().c_lflag & ICANON);)
            if (deadline.passed()) ADD_FAILURE() << "the shell does not get the line";
        t.type("exit\n");
        t.until(kPrompt);
        return printed;
    }
};

void expect_its_job(const CliCmdRow& row, const std::string& printed)
{
    EXPECT_FALSE(has(printed, "not available yet"));
    EXPECT_EQ(has(printed, kNoRecord), !has_record(row)) << printed;
    EXPECT_EQ(has(printed, "Action function is not supported\n"), row.cmdId == kZDebugAlone) << printed;
    EXPECT_FALSE(printed.empty());
    const auto ringing = kRinging.find(row.cmdId);
    if (ringing == kRinging.end())
        EXPECT_FALSE(has(printed, "\a")) << printed;
    else
        EXPECT_TRUE(has(printed, ringing->second)) << printed;
}

void walk(std::string (*spelled)(const CliCmdRow&, std::size_t))
{
    in_own_network(kDevice, [spelled] {
        Operator console;
        for (const CliCmdRow& row : command_rows::kRows) {
            const Words words = words_of(row, spelled);
            if (row.cmdId == kLogoutCommand || row.cmdId == kCommandEnd) continue;
            SCOPED_TRACE(joined(words));
            expect_its_job(row, console.run_row(row, words));
        }
        console.service.stop();
        console.log_out(spelled(*std::ranges::find(command_rows::kRows, kLogoutCommand, &CliCmdRow::cmdId), 0));
        EXPECT_FALSE(has(Service::log(), "Sanitizer")) << Service::log();
    });
}

TEST(EveryRow, DoesItsJobTypedInFull) { walk(whole_word); }
TEST(EveryRow, DoesItsJobTypedAsItsShortestWords) { walk(shortest_word); }

TEST(EveryRow, RefusesABadValueAndRunsNothing)
{
    in_own_network(kDevice, [] {
        Operator console;
        console.run("set system name before");
        const std::string before = running_configuration();
        EXPECT_TRUE(has(before, "before"));
        for (const CliCmdRow& row : command_rows::kRows)
            for (std::size_t at = 0; at < row.tokens.size() && row.tokens[at] != none; ++at)
                for (const Bad& bad : kBad) {
                    if (bad.type != row.tokens[at] || (bad.by == By::command && !has_record(row))) continue;
                    Words words = words_of(row, whole_word);
                    words[at] = bad.value;
                    if (bad.by == By::parser) words.resize(at + 1);
                    const std::string printed = console.run_refused(joined(words));
                    EXPECT_TRUE(has(printed, bad.message)) << joined(words) << '\n' << printed;
                }
        EXPECT_TRUE(running_configuration() == before) << running_configuration();
        console.log_out("logout");
    });
}

TEST(EveryRow, SaysThatTheServiceIsNotRunning)
{
    in_own_network(kDevice, [] {
        Operator console;
        console.service.stop();
        for (const CliCmdRow& row : command_rows::kRows) {
            const Job job = job_of(row);
            const std::string line = joined(words_of(row, whole_word));
            if (row.cmdId == kLogoutCommand || row.cmdId == kCommandEnd) continue;
            SCOPED_TRACE(line);
            if (row.cmdId == kChangePassword) {  // no password is the right one
                console.run(line, {{"old password: ", "admin\n"}, {"old password: ", kCtrlC}});
            } else if (!has_record(row) || lists_values(row) || job.needs == Needs::nothing) {
                expect_its_job(row, console.run_row(row, words_of(row, whole_word)));
            } else {
                const bool asks = job.needs == Needs::serviceBehindQuestions;
                const std::string printed = console.run(line, asks ? job.steps : std::vector<Step>{});
                const bool mute = row.cmdId == kSetContact || row.cmdId == kSetLocation;
                EXPECT_TRUE(has(printed, mute ? kNoReason : kGone)) << printed;
            }
        }
        console.log_out("logout");
    });
}
// The questions of a row, by the line that begins with the row's words.
std::vector<Step> steps_of(const std::string& line)
{
    std::vector<Step> steps;
    for (const CliCmdRow& row : command_rows::kRows) {
        std::string words;
        for (std::size_t at = 0; at < row.tokens.size() && is_word(row.tokens[at]); ++at)
            words += keyword_text(row.tokens[at]) + ' ';
        if (!words.empty() && (line + ' ').starts_with(words) && !job_of(row).steps.empty()) steps = job_of(row).steps;
    }
    return steps;
}

// Up time goes on.
std::string lasting(const std::string& printed)
{
    const std::size_t upTime = printed.find("Up Time:");
    return upTime == printed.npos ? printed : printed.substr(0, upTime) + printed.substr(printed.find('\n', upTime));
}

TEST(EveryRow, WhatIsSetIsThereAfterSaveAndRestart)
{
    in_own_network(kDevice, [] {
        Operator console;
        std::map<std::string, std::string> shown;
        for (const Setting& each : kSettings) console.run(each.line, steps_of(each.line));
        for (const Setting& each : kSettings) {
            shown[each.shownBy] = lasting(console.run(each.shownBy));
            EXPECT_TRUE(has(shown[each.shownBy], each.shown)) << each.line << '\n' << shown[each.shownBy];
        }
        console.run("save config");
        console.service.restart_device();
        for (const auto& [line, before] : shown) EXPECT_EQ(lasting(console.run(line)), before) << line;

        Terminal next;
        next.until_password_asked();
        next.type("walked\n");
        next.until("Welcome!\nwalked> ");
    });
}
}  // namespace
