// Addressing, DHCP server, time and the configuration as a whole, from the key to what is there after a restart.
#include <filesystem>

#include "terminal/dialogue_session.h"

namespace {
constexpr char kNotRunning[] = "The configuration service is not running\n";
constexpr char kYesOrNo[] = " Error: Action confirm word must be \"yes\" or \"no\"\a\n";

std::string ask_lower(const std::string& shown) { return " enter lower IP address of address pool (" + shown + "): "; }
std::string ask_upper(const std::string& shown) { return " enter upper IP address of address pool (" + shown + "): "; }
const std::string kAskGateway = " enter gateway IP address (192.168.1.1): ";
const std::string kAskLease = " enable lease time (1440, 1-525600): ";
const std::string kAskDns = " do you want to assign DNS server (yes, yes/no): ";
const std::string kAskPrimary = " enter IP address of the primary DNS (Unspecified): ";
const std::string kAskSecondary = " enter IP address of the secondary DNS (Unspecified): ";

std::string dhcp_server(const std::string& state, const std::string& pool, const std::string& lease,
                        const std::string& primary)
{
    return "        DHCP server status:       " + state + "\n        IP address range:         " + pool +
           "\n        Network mask:             255.255.255.0\n        Lease time:               " + lease +
           " minutes\n        Gateway IP address: 192.168.1.1\n        Primary DNS IP address:   " + primary +
           "\n        Secondary DNS IP address: 0.0.0.0\n";
}
const std::string kFactoryServer = dhcp_server("enabled", "192.168.1.100 to 192.168.1.199", "1440", "0.0.0.0");

std::string reserved(const std::string& rows)
{
    return "IP Address        MAC Address \n------------------------------------\n" + rows;
}

std::string ntp_client(const std::string& state, const std::string& zone, const std::string& kind,
                       const std::string& name, const std::string& address, const std::string& interval)
{
    const auto row = [](std::string label, std::string value) {
        label.resize(30, ' ');
        if (value.size() < 25) value.resize(25, ' ');
        return label + value + "\n";
    };
    return row("NTP state:", state) + row("Timezone:", zone) + row("Time server type:", kind) +
           row("Time server domain name:", name) + row("Time server IP address:", address) +
           row("Request interval:", interval + " (hour)");
}
const std::string kFactoryClient =
    ntp_client("Disabled", "GMT+00:00", "Domain Name", "pool.ntp.org", "Unspecified", "24");

const std::string kAskMode = " obtain IP address automatically (no, yes/no): ";
const std::string kAskNetmask = " IP subnet mask (255.255.255.0): ";
std::string ask_address(const std::string& shown) { return " IP address (" + shown + "): "; }
std::string ask_router(const std::string& shown) { return " gateway IP address (" + shown + "): "; }
std::string ask_server(const std::string& shown) { return " primary DNS IP address (" + shown + "): "; }
std::string own_address(const std::string& address)
{
    return "        IP address :                " + address + "\n        IP netmask:                 255.255.255.0\n";
}

class SystemCommands : public DialogueSession {
protected:
    // show system ip, without the lines that tell of this machine.
    std::string shown_address()
    {
        const std::string shown = run("show system ip");
        return shown.substr(0, shown.find("        Default gateway IP address: "));
    }
    void expect_factory()
    {
        EXPECT_EQ(run("show dhcp server"), kFactoryServer);
        EXPECT_EQ(run("show dhcp static"), reserved(""));
        EXPECT_EQ(run("show ntp client"), kFactoryClient);
        EXPECT_EQ(shown_address(), own_address("192.168.1.1"));
    }
};

TEST_F(SystemCommands, TheDhcpServerIsSetQuestionByQuestion)
{
    play({{"set dhcp server", ask_lower("192.168.1.100")},
          {"192.168.1.50", ask_upper("192.168.1.199")},
          {"192.168.1.255",
           error_line("IP Address can not be the same as Broadcast address ") + ask_upper("192.168.1.50")},
          {"192.168.1.49", error_line("Invalid Dhcp Ip address range ") + ask_lower("192.168.1.50")},
          {"", ask_upper("192.168.1.199")},
          {"192.168.1.60", kAskGateway},
          {"192.168.1.1", error_line("IP Address can not be the same as AP's IP ") + kAskGateway},
          {"", kAskLease},
          {"525601", error_line("Invalid lease time range ") + kAskLease},
          {"60", kAskDns},
          {"maybe", kYesOrNo + kAskDns},
          {"yes", kAskPrimary},
          {"", kAskPrimary},
          {"8.8.8.8", kAskSecondary},
          {"", dhcp_server("enabled", "192.168.1.50 to 192.168.1.60", "60", "8.8.8.8") + kPrompt}});
    EXPECT_EQ(run("disable dhcp server"), dhcp_server("disabled", "192.168.1.50 to 192.168.1.60", "60", "8.8.8.8"));
    EXPECT_EQ(run("enable dhcp server"), dhcp_server("enabled", "192.168.1.50 to 192.168.1.60", "60", "8.8.8.8"));
}

// The console asks for a range, the service for one that lies within a network.
TEST_F(SystemCommands, APoolThatTheServiceRefusesIsNotSet)
{
    play({{"set dhcp server", ask_lower("192.168.1.100")},
          {"192.168.1.200", ask_upper("192.168.1.199")},
          {"", kAskGateway},
          {"", kAskLease},
          {"", kAskDns},
          {"no", std::string("\aThe addresses of the pool are not a range of hosts in one network\n") + kPrompt}});
    EXPECT_EQ(run("show dhcp server"), kFactoryServer);
}

TEST_F(SystemCommands, AddressesAreReservedAndReleased)
{
    const std::string first = "192.168.1.7       02-00-5e-10-00-aa\n", second = "10.1.2.3          02-00-5e-10-00-ab\n";
    const Exchange kLines[] = {
        {"add dhcp static 192.168.1.7 02-00-5e-10-00-aa", reserved(first)},
        {"add dhcp static 10.1.2.3 02-00-5e-10-00-ab", reserved(first + second)},
        {"add dhcp static 10.1.2.3 02-00-5e-10-00-ac", "\aThe IP or MAC address has a static DHCP entry already\n"},
        {"add dhcp static 10.1.2.4 02-00-5e-10-00-aa", "\aThe IP or MAC address has a static DHCP entry already\n"},
        {"add dhcp static 192.168.1.1 02-00-5e-10-00-ac", error_line("IP Address can not be the same as AP's IP ")},
        {"add dhcp static 192.168.1.255 02-00-5e-10-00-ac",
         error_line("IP Address can not be the same as Broadcast address ")},
        {"add dhcp static 192.168.1.0 02-00-5e-10-00-ac",
         error_line("IP Address can not be the same as Network IP address ")},
        {"add dhcp static 224.0.0.1 02-00-5e-10-00-ac",
         "\aAn address or setting of the DHCP server is not acceptable\n"},
        {"delete dhcp static 10.1.2.4", "\aThere is no static DHCP entry of that address\n"},
        {"delete dhcp static 192.168.1.7", reserved(second)},
        {"show dhcp static", reserved(second)},
    };
    for (const Exchange& each : kLines) EXPECT_EQ(run(each.typed), each.printed) << each.typed;
}

// The development profile names no lease file: nothing was given out.
TEST_F(SystemCommands, NoLeaseIsMadeUp)
{
    EXPECT_EQ(run("show dhcp client table"),
              "Host Name IP Address        Mac Address         Lease-Expires  Entry   Network\n"
              "------------------------------------------------------------------------------\n");
}

TEST_F(SystemCommands, TheNtpClientIsSetQuestionByQuestion)
{
    play({{"set ntp client", " enter timezone (GMT+00:00): "},
          {"5:3",
           error_line(
               "Time zone should be the differences between local time and GMT. (e.g.:\n -8:00 for Pacific Time)") +
               " enter timezone (GMT+00:00): "},
          {"+5:30", " enter time server by IP address (No, yes/no): "},
          {"y", " enter time server IP (Unspecified): "},
          {"", " Please sepcifiy IP address.\n enter time server IP (Unspecified): "},
          {"10.0.0.1", " enter request interval (24, 1-720): "},
          {"721", error_line("Invalid interval value should be 1~720") + " enter request interval (24, 1-720): "},
          {"720", " enable ntp (yes, yes/no): "},
          {"YES", ntp_client("Disabled", "GMT+00:00", "IP", "pool.ntp.org", "10.0.0.1", "720") + kPrompt}});
    play({{"set ntp client", " enter timezone (GMT+00:00): "},
          {"+05:30", " enter time server by IP address (Yes, yes/no): "},
          {"no", " enter time server domain name (pool.ntp.org): "},
          {"time.example", " enter request interval (720, 1-720): "},
          {"", " enable ntp (yes, yes/no): "},
          {"", ntp_client("Enabled", "GMT+05:30", "Domain Name", "time.example", "10.0.0.1", "720") + kPrompt}});
    EXPECT_EQ(run("disable ntp client"), "NTP has been disabled, please set time menually.\n");
    EXPECT_EQ(run("enable ntp client"), "NTP has been enabled to synchronzied time automatically.\n");
}

TEST_F(SystemCommands, TheLanAddressIsSetQuestionByQuestion)
{
    const std::string modeOfOthers = " obtain IP address automatically (yes, yes/no): ";
    play({{"set system ip", kAskMode},
          {"no", ask_address("192.168.1.1")},
          {"192.168.1", error_line("Invalid IP address") + ask_address("192.168.1.1")},
          {"192.168.1.2", kAskNetmask},
          {"", ask_router("0.0.0.0")},
          {"192.168.1.254", ask_server("0.0.0.0")},
          {"8.8.8.8", own_address("192.168.1.2")}});
    t.until(kPrompt);
    EXPECT_EQ(shown_address(), own_address("192.168.1.2"));
    EXPECT_NE(run("show system").find("System IP/Netmask:       192.168.1.2/255.255.255.0\n"), std::string::npos);
    play({{"set system ip", kAskMode},
          {"", ask_address("192.168.1.2")},
          {"", kAskNetmask},
          {"", ask_router("192.168.1.254")},
          {"", ask_server("8.8.8.8")},
          {"", own_address("192.168.1.2")}});
    t.until(kPrompt);
    play({{"set system ip", kAskMode}, {"y", "        IP address :                "}});
    t.until(kPrompt);
    play({{"set system ip", modeOfOthers}, {"", "        IP address :                "}});
    t.until(kPrompt);
    play({{"set system ip", modeOfOthers}, {"n", " IP address ("}});
}

struct Address {
    const char *address, *router, *printed;
};
constexpr Address kAddresses[] = {
    {"192.168.1.255", "192.168.1.254", " Error: IP Address can not be the same as Broadcast address \a\n"},
    {"192.168.1.2", "", " Error: IP address and Default gateway must be in the same subnet.\a\n"},
    {"192.168.1.0", "192.168.1.254", "The IP address or gateway is not a host address of its network\n"},
    {"127.0.0.1", "127.0.0.2", "The IP address or gateway is not a host address of its network\n"},
};
TEST_F(SystemCommands, ALanAddressThatCannotBeIsNotSet)
{
    for (const Address& each : kAddresses)
        play({{"set system ip", kAskMode},
              {"", ask_address("192.168.1.1")},
              {each.address, kAskNetmask},
              {"", ask_router("0.0.0.0")},
              {each.router, ask_server("0.0.0.0")},
              {"", std::string(each.printed) + kPrompt}});
    EXPECT_EQ(shown_address(), own_address("192.168.1.1"));
}

class Configured : public SystemCommands {
protected:
    // Something of every area.
    void configure()
    {
        run("disable dhcp server");
        run("add dhcp static 192.168.1.7 02-00-5e-10-00-aa");
        run("enable ntp client");
        play({{"set system ip", kAskMode},
              {"", ask_address("192.168.1.1")},
              {"192.168.1.2", kAskNetmask},
              {"", ask_router("0.0.0.0")},
              {"192.168.1.254", ask_server("0.0.0.0")},
              {"", own_address("192.168.1.2")}});
        t.until(kPrompt);
    }
    void expect_configured()
    {
        EXPECT_EQ(run("show dhcp server"),
                  dhcp_server("disabled", "192.168.1.100 to 192.168.1.199", "1440", "0.0.0.0"));
        EXPECT_EQ(run("show dhcp static"), reserved("192.168.1.7       02-00-5e-10-00-aa\n"));
        EXPECT_EQ(run("show ntp client"),
                  ntp_client("Enabled", "GMT+00:00", "Domain Name", "pool.ntp.org", "Unspecified", "24"));
        EXPECT_EQ(shown_address(), own_address("192.168.1.2"));
    }
};

TEST_F(Configured, WhatIsSavedIsThereAfterARestartOfTheDevice)
{
    configure();
    EXPECT_EQ(run("save config"), "Save configure successfully!\n");
    run("delete dhcp static 192.168.1.7");
    run("disable ntp client");
    service.restart_device();
    expect_configured();
}

TEST_F(Configured, ACrashOfTheServiceAloneLosesNothing)
{
    configure();
    service.kill();
    service.start();
    expect_configured();
}

TEST_F(Configured, ResetSystemGoesBackToWhatWasSaved)
{
    const std::string question = " System will reboot (Yes/No) : ";
    configure();
    run("save config");
    run("delete dhcp static 192.168.1.7");
    play({{"reset system", question},
          {"", question},
          {"reboot", kYesOrNo + question},
          {"no", kPrompt},
          {"show dhcp static", reserved("") + kPrompt},
          {"reset system", question},
          {"YES", std::string("reboot...\n") + kPrompt}});
    expect_configured();
}

TEST_F(Configured, ClearConfigGivesTheFactoryValues)
{
    const std::string question =
        "All configuration will be cleared and system will reset.\nDo you want to continue (y/n)?";
    configure();
    run("save config");
    play({{"clear config", question}, {"", question}, {"y/n", kYesOrNo + question}, {"n", kPrompt}});
    expect_configured();
    play({{"clear config", question}, {"y", std::string("\nRebooting...\n") + kPrompt}});
    expect_factory();
    service.restart_device();
    expect_factory();
}

TEST_F(Configured, ASaveThatFailsSaysWhy)
{
    std::filesystem::create_directories(Service::state_folder() + "/config.json.new/in-the-way");
    EXPECT_EQ(run("save config"), "\aThe configuration could not be stored\n");
    std::filesystem::remove_all(Service::state_folder() + "/config.json.new");
    EXPECT_EQ(run("save config"), "Save configure successfully!\n");
    service.stop();
    EXPECT_EQ(run("save config"), std::string("\a") + kNotRunning);
    service.start();
}

// Every dialogue, with an answer to each of its questions that changes something; the last one ends it.
struct Dialogue {
    const char* name;
    std::string command;
    std::vector<std::string> answers;
    std::string questions;  // the first words of each question, each ended by a newline
    std::string withoutService;
};
void PrintTo(const Dialogue& dialogue, std::ostream* out) { *out << dialogue.name; }
const Dialogue kDialogues[] = {
    {"DhcpServer",
     "set dhcp server",
     {"192.168.1.10", "192.168.1.20", "192.168.1.254", "60", "y", "8.8.8.8", "9.9.9.9"},
     " enter lower IP\n enter upper IP\n enter gateway IP\n enable lease time\n do you want to assign\n"
     " enter IP address of the primary\n enter IP address of the secondary\n",
     std::string("\a") + kNotRunning},
    {"NtpClient",
     "set ntp client",
     {"-08:00", "no", "time.example", "12", "yes"},
     " enter timezone\n enter time server by\n enter time server domain\n enter request\n enable ntp\n",
     std::string("\a") + kNotRunning},
    {"SystemIp",
     "set system ip",
     {"no", "192.168.1.2", "255.255.255.0", "192.168.1.254", "8.8.8.8"},
     " obtain IP\n IP address\n IP subnet\n gateway IP\n primary DNS\n",
     kNotRunning},
    {"ResetSystem",
     "reset system",
     {"yes"},
     " System will reboot\n",
     "reboot...\n\aThe request failed, no reason was given\n"},
    {"ClearConfig", "clear config", {"yes"}, "All configuration\n", std::string("\a") + kNotRunning},
};
class EveryDialogue : public SystemCommands, public testing::WithParamInterface<Dialogue> {
protected:
    // Types the command and `count` answers. Returns what the last of them has printed up to the next question.
    void go_to_question(std::size_t count)
    {
        std::size_t at = 0;
        for (std::size_t i = 0; i <= count; ++i) {
            t.type((i == 0 ? GetParam().command : GetParam().answers[i - 1]) + '\n');
            const std::size_t end = GetParam().questions.find('\n', at);
            t.until(GetParam().questions.substr(at, end - at));
            at = end + 1;
        }
        t.until(GetParam().command == "clear config" ? "?" : ": ");
    }
};

TEST_P(EveryDialogue, CtrlCAtAnyQuestionChangesNothing)
{
    for (std::size_t i = 0; i < GetParam().answers.size(); ++i) {
        go_to_question(i);
        t.type(GetParam().answers[i].substr(0, 2));
        t.until(GetParam().answers[i].substr(0, 2));
        t.type(kCtrlC);
        EXPECT_EQ(t.until(kPrompt), std::string("^C\a\n") + kPrompt) << "at question " << i;
    }
    expect_factory();
}

TEST_P(EveryDialogue, CtrlEAtAnyQuestionAnswersNothing)
{
    for (std::size_t i = 0; i < GetParam().answers.size(); ++i) {
        go_to_question(i);
        t.type(std::string(kCtrlE) + kCtrlE + "x");
        EXPECT_EQ(t.until("x"), "\a\ax") << "at question " << i;
        t.type(kCtrlC);
        t.until(kPrompt);
    }
    expect_factory();
}

TEST_P(EveryDialogue, TheServiceGoneBeforeTheLastAnswerIsReported)
{
    go_to_question(0);
    service.stop();
    for (std::size_t i = 1; i < GetParam().answers.size(); ++i) {
        t.type(GetParam().answers[i - 1] + '\n');
        t.until(GetParam().answers[i - 1] + '\n');
    }
    const std::string& last = GetParam().answers.back();
    t.type(last + '\n');
    t.until(last + '\n');
    EXPECT_EQ(t.until(kPrompt), GetParam().withoutService + kPrompt);
    service.start();
    expect_factory();
}
INSTANTIATE_TEST_SUITE_P(Dialogues, EveryDialogue, testing::ValuesIn(kDialogues),
                         [](const auto& dialogue) { return dialogue.param.name; });

// The one question that takes any text.
class Answers : public SystemCommands {
protected:
    void SetUp() override
    {
        play({{"set ntp client", " enter timezone (GMT+00:00): "},
              {"", " enter time server by IP address (No, yes/no): "},
              {"", kQuestion}});
    }
    void finish(const std::string& name)
    {
        play({{"", " enable ntp (yes, yes/no): "},
              {"", ntp_client("Enabled", "GMT+00:00", "Domain Name", name, "Unspecified", "24") + kPrompt}});
    }
    const std::string kQuestion = " enter time server domain name (pool.ntp.org): ";
    const std::string kNext = " enter request interval (24, 1-720): ";
};

TEST_F(Answers, OfOneAndOfFiftyCharactersAreTaken)
{
    play({"a", kNext});
    finish("a");
    const std::string longest(50, 'n');
    play({{"set ntp client", " enter timezone (GMT+00:00): "},
          {"", " enter time server by IP address (No, yes/no): "},
          {"", " enter time server domain name (a): "},
          {longest, kNext}});
    finish(longest);
}

TEST_F(Answers, OfSixtyCharactersReachTheValidator)
{
    play({{std::string(60, 'n'), error_line("Line length is too long.") + kQuestion}, {"", kNext}});
    finish("pool.ntp.org");
}

TEST_F(Answers, EndAtTheSixtiethCharacter)
{
    const std::string kept(60, 'n'),
        retry = "\n" + error_line("Keyword or parameter length is too long.") + " Retry : " + kept;
    t.type(kept + "x");
    EXPECT_EQ(t.until(retry), kept + retry);
    for (int i = 0; i < 139; ++i) {
        t.type("y");
        ASSERT_EQ(t.until(retry), retry);
    }
    play({"", error_line("Line length is too long.") + kQuestion});
    play({"", kNext});
    finish("pool.ntp.org");
}

TEST_F(Answers, HoldNoControlCharacter)
{
    std::string keys;
    for (int key = 1; key < 256; ++key)
        if (key != 3 && key != '\n' && key != '\r' && key != 27 && (key < 32 || key > 126))
            keys += static_cast<char>(key);
    t.type(keys + "\x0c" + "time.example\n");
    t.until("time.example\n" + kNext);
    finish("time.example");
}
}  // namespace
