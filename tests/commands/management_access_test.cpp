// Management access, UPnP, dynamic DNS and the ping allowance: what is asked, what is sent, what stands on the screen.
#include "commands/command_session.h"
#include "commands/handlers.h"
#include "platform/ipc_client.h"
#include "service/fields/ddns.h"
#include "service/fields/interfaces.h"
#include "service/fields/management.h"
#include "service/fields/ping.h"

namespace {
constexpr std::uint32_t kFirstClient = 0x0A000001, kSecondClient = 0x0A000002;

std::string refusal(const std::string& text, const std::string& question = "")
{
    return " Error: " + text + "\a\n" + question;
}

class ManagementAccess : public CommandSession {
protected:
    ManagementAccess()
    {
        using namespace management_record;
        httpPort.set(held(), 80);
        httpTimeout.set(held(), 10);
        telnetPort.set(held(), 23);
        sessionTimeout.set(held(), 15);
        remoteMode.set(held(), kRemoteDisabled);
    }
    ComParam& held() { return record(code::kReadManagement); }

    // What was read, as it goes back with a change.
    ComParam written()
    {
        ComParam request = held();
        record::kind.set(request, record::kRequest);
        record::code.set(request, code::kWriteManagement);
        return request;
    }
};

constexpr char kWarning[] =
    " warning: changing the port number will close existing sessions; do you want to continue(no, yes/no):";
constexpr char kUnchanged[] = "The HTTP port has not been changed.\n   HTTP port:   80          Timeout: 10 mins\n";

TEST_F(ManagementAccess, TheHttpPortChangesOnlyAfterAYes)
{
    struct Case {
        const char* answer;
        bool changes;
        std::string screen;
    };
    const Case kCases[] = {
        {"", false, kUnchanged},
        {"n", false, kUnchanged},
        {"YES", true, " The HTTP port has been changed.\n   HTTP port:   65535       Timeout: 10 mins\n"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(run(CliSetHttpPort, {65535}), kWarning);
        EXPECT_EQ(stage(), 133u);
        EXPECT_EQ(answer("maybe"), refusal("Action confirm word must be \"yes\" or \"no\"", kWarning));
        EXPECT_EQ(answer(c.answer), c.screen) << c.answer;
        EXPECT_FALSE(asking());
        EXPECT_EQ(sent(code::kWriteManagement), c.changes ? 1u : 0u) << c.answer;
    }
    ComParam wanted = written();
    management_record::httpPort.set(wanted, 65535);
    EXPECT_TRUE(same_record(last_request(), wanted));
}

TEST_F(ManagementAccess, HttpAndTelnetDoNotShareAPort)
{
    EXPECT_EQ(run(CliSetHttpPort, {23}), refusal("Port number is already in use"));
    EXPECT_FALSE(asking());
    EXPECT_EQ(run(CliSetTelnetPort, {80}), refusal("Port number is already in use"));
    EXPECT_EQ(sent(code::kWriteManagement), 0u);
}

TEST_F(ManagementAccess, TheOtherValuesGoStraightToTheService)
{
    EXPECT_EQ(run(CliSetHttpTimeout, {60}), "   HTTP port:   80          Timeout: 60 mins\n");
    ComParam wanted = written();
    management_record::httpTimeout.set(wanted, 60);
    EXPECT_TRUE(same_record(last_request(), wanted));

    EXPECT_EQ(run(CliSetTelnetPort, {2323}),
              " The telnet port has been changed.\n   Telnet port: 2323        Timeout: 15 mins\n");
    EXPECT_EQ(run(CliSetTelnetTimeout, {1}), "   Telnet port: 23          Timeout: 1 mins\n"
                                             "The timeout will take effect at the next login.\n");
    wanted = written();
    management_record::sessionTimeout.set(wanted, 1);
    EXPECT_TRUE(same_record(last_request(), wanted));
    EXPECT_EQ(run(CliShowTelnet), "   Telnet port: 23          Timeout: 15 mins\n");
}

TEST_F(ManagementAccess, SaysWhyTheServiceRefuses)
{
    refused[code::kWriteManagement] = kStatusPortInUse;
    EXPECT_EQ(run(CliSetTelnetPort, {24}), "\aAnother service of this device has that port\n");
    run(CliSetHttpPort, {24});
    EXPECT_EQ(answer("yes"), "\aAnother service of this device has that port\n");

    exchangeFails[code::kReadManagement] = IPC_NOT_RUNNING;
    for (const Action command : {CliSetHttpPort, CliSetHttpTimeout, CliSetTelnetPort, CliSetTelnetTimeout, CliShowHttp,
                                 CliShowTelnet, CliSetRmtmgnt, CliShowRmtmgnt, CliEnableRmtmgnt, CliDisableRmtmgnt}) {
        EXPECT_EQ(run(command, {24}), "\aThe configuration service is not running\n");
        EXPECT_FALSE(asking());
    }
}

// Who may manage the device, as the dialogue leaves it.
class RemoteManagement : public ManagementAccess {
protected:
    void hold(std::uint8_t mode, std::uint32_t first, std::uint32_t second)
    {
        management_record::remoteMode.set(held(), mode);
        management_record::remoteClient[0].set(held(), first);
        management_record::remoteClient[1].set(held(), second);
    }
};

TEST_F(RemoteManagement, TheAnswersDecideWhoMayComeIn)
{
    using namespace management_record;
    struct Case {
        const char* name;
        std::uint8_t mode;
        std::uint32_t first, second;
        std::initializer_list<const char*> answers;
        std::uint8_t newMode;
        std::uint32_t newFirst, newSecond;
    };
    const Case kCases[] = {
        {"FromAllToOne", kRemoteAll, 0, 0, {"no", "", "10.0.0.1"}, kRemoteOne, kFirstClient, 0},
        {"FromOneToTwo",
         kRemoteOne,
         kFirstClient,
         0,
         {"", "2", "", "10.0.0.2"},
         kRemoteTwo,
         kFirstClient,
         kSecondClient},
        {"FromTwoToOne", kRemoteTwo, kFirstClient, kSecondClient, {"", "1", ""}, kRemoteOne, kFirstClient, 0},
        {"FromTwoToAll", kRemoteTwo, kFirstClient, kSecondClient, {"yes"}, kRemoteAll, 0, 0},
        {"StaysDisabled", kRemoteDisabled, 0, 0, {"no", "1", "10.0.0.1"}, kRemoteDisabled, kFirstClient, 0},
    };
    for (const Case& c : kCases) {
        hold(c.mode, c.first, c.second);
        run(CliSetRmtmgnt);
        answers(c.answers);
        EXPECT_FALSE(asking()) << c.name;
        ComParam wanted = written();
        remoteMode.set(wanted, c.newMode);
        remoteClient[0].set(wanted, c.newFirst);
        remoteClient[1].set(wanted, c.newSecond);
        EXPECT_TRUE(same_record(last_request(), wanted)) << c.name;
    }
}

TEST_F(RemoteManagement, AsksAgainForWhatIsNoClient)
{
    hold(management_record::kRemoteDisabled, 0, 0);
    EXPECT_EQ(run(CliSetRmtmgnt), " allow all remote management client (yes, yes/no): ");
    constexpr char kAskCount[] = " enter number of remote management clients (1, 1~2): ";
    EXPECT_EQ(answer("no"), kAskCount);
    EXPECT_EQ(answer("3"), refusal("Number of remote management clients should be 1 to 2", kAskCount));
    const std::string first = " enter IP address of the remote management client 1 (Unspecified): ";
    EXPECT_EQ(answer("2"), first);
    EXPECT_EQ(answer(""), refusal("Remote management client must be an IP address", first));
    EXPECT_EQ(answer("10.0.0"), refusal("Invalid IP address", first));
    EXPECT_EQ(answer("127.0.0.1"), refusal("IP Address can not be the Loopback", first));
    EXPECT_EQ(answer("224.0.0.9"), refusal("IP address can not be a multicast address", first));
    const std::string second = " enter IP address of the remote management client 2 (Unspecified): ";
    EXPECT_EQ(answer("10.0.0.1"), second);
    EXPECT_EQ(answer("10.0.0.1"), refusal("Entry already exists", second));
    EXPECT_EQ(answer("10.0.0.2"), "   Remote management:       disabled\n"
                                  "   Allowed client:          10.0.0.1\n"
                                  "   Allowed client:          10.0.0.2\n");
}

TEST_F(RemoteManagement, EnablingBringsTheSameClientsBack)
{
    using namespace management_record;
    hold(kRemoteDisabled, kFirstClient, kSecondClient);
    run(CliEnableRmtmgnt);
    EXPECT_EQ(remoteMode.get(last_request()), kRemoteTwo);
    hold(kRemoteDisabled, 0, 0);
    EXPECT_EQ(run(CliEnableRmtmgnt), "   Remote management:       enabled\n   Allowed clients:         all\n");
    EXPECT_EQ(remoteMode.get(last_request()), kRemoteAll);
    hold(kRemoteOne, kFirstClient, 0);
    EXPECT_EQ(run(CliDisableRmtmgnt), "   Remote management:       disabled\n   Allowed client:          10.0.0.1\n");
    EXPECT_EQ(remoteMode.get(last_request()), kRemoteDisabled);
}

TEST_F(RemoteManagement, UnchangedAnswersWriteNothing)
{
    hold(management_record::kRemoteTwo, kFirstClient, kSecondClient);
    run(CliSetRmtmgnt);
    answers({"", "", "", ""});
    EXPECT_FALSE(asking());
    EXPECT_EQ(codes(), std::vector<std::uint16_t>{code::kReadManagement});
}

class Ddns : public CommandSession {
protected:
    ComParam& held() { return record(code::kReadDdns); }
    static bool password_is_forgotten()
    {
        using ddns_record::password;
        return password.length(usrComParam) == 0 && password.length(wizardParam) == 0 &&
               password.length(oldWizardParam) == 0;
    }
};

TEST_F(Ddns, AsksFourQuestionsAndForgetsThePassword)
{
    EXPECT_EQ(run(CliSetDdns), " enable DDNS (no, yes/no): ");
    const std::string askHostname = " enter hostname (Unspecified): ", askUsername = " enter username (Unspecified): ";
    EXPECT_EQ(answer("y"), askHostname);
    EXPECT_EQ(answer(""), refusal("Hostname must not be empty", askHostname));
    EXPECT_EQ(answer("my-host"), refusal("Invalid character", askHostname));
    EXPECT_EQ(answer(std::string(51, 'a').c_str()), refusal("Line length is too long.", askHostname));
    EXPECT_EQ(answer("my_host"), askUsername);
    EXPECT_EQ(answer(""), refusal("DDNS username must not be empty", askUsername));
    EXPECT_EQ(answer("fred"), " enter password (Unspecified): ");
    EXPECT_TRUE(stage() & kUnseenStage);
    answer("not-for-eyes");
    EXPECT_FALSE(asking());

    EXPECT_EQ(ddns_record::enabled.get(last_request()), 1);
    ComParam request = last_request();
    EXPECT_STREQ(ddns_record::hostname.get(request), "my_host");
    EXPECT_STREQ(ddns_record::username.get(request), "fred");
    EXPECT_STREQ(ddns_record::password.get(request), "not-for-eyes");
    EXPECT_TRUE(password_is_forgotten());
}

TEST_F(Ddns, AStoredPasswordIsStarsAndUnchangedAnswersWriteNothing)
{
    ddns_record::hostname.set(held(), "my_host");
    ddns_record::passwordSet.set(held(), 1);
    run(CliSetDdns);
    EXPECT_EQ(answers({"", "", ""}), " enter password (********): ");
    EXPECT_EQ(answer(""), "   DDNS:                    disabled\n   Hostname:                my_host\n"
                          "   Username:                Unspecified\n   Password:                ********\n");
    EXPECT_EQ(sent(code::kWriteDdns), 0u);
}

TEST_F(Ddns, APasswordIsForgottenWhenItIsRefusedToo)
{
    refused[code::kWriteDdns] = kStatusStorageFull;
    run(CliSetDdns);
    EXPECT_EQ(answers({"", "", "", "not-for-eyes"}), "\aThe configuration could not be stored: no space is left\n");
    EXPECT_TRUE(password_is_forgotten());
}

TEST_F(Ddns, IsNotEnabledWithoutAHostnameAndAUser)
{
    EXPECT_EQ(run(CliEnableDdns), refusal("Hostname must not be empty"));
    ddns_record::hostname.set(held(), "my_host");
    EXPECT_EQ(run(CliEnableDdns), refusal("DDNS username must not be empty"));
    EXPECT_EQ(sent(code::kWriteDdns), 0u);
    ddns_record::username.set(held(), "fred");
    EXPECT_EQ(run(CliEnableDdns), "   DDNS:                    enabled\n");
    EXPECT_EQ(run(CliDisableDdns), "   DDNS:                    disabled\n");
    EXPECT_EQ(ddns_record::enabled.get(last_request()), 0);
}

class PingAllowance : public CommandSession {};

TEST_F(PingAllowance, OneCodeReadsAndChanges)
{
    struct Case {
        Action command;
        std::uint8_t change;
    };
    const char name[] = "eth1";
    for (const Case& c : {Case{CliShowPingParm, ping_record::kRead}, Case{CliEnablePing, ping_record::kAllow},
                          Case{CliDisablePing, ping_record::kForbid}}) {
        run(c.command, {reinterpret_cast<Word>(name)});
        ComParam wanted = bare_request(code::kReadPingAllowance);
        ping_record::interface.set(wanted, name);
        ping_record::change.set(wanted, c.change);
        EXPECT_TRUE(same_record(last_request(), wanted));
    }
    ping_record::interface.set(record(code::kReadPingAllowance), name);
    ping_record::allowed.set(record(code::kReadPingAllowance), 1);
    EXPECT_EQ(run(CliEnablePing, {reinterpret_cast<Word>(name)}),
              " name            internet ping\n eth1            enabled\n");
    refused[code::kReadPingAllowance] = kStatusUnknownName;
    EXPECT_EQ(run(CliEnablePing, {reinterpret_cast<Word>(name)}), "\aThere is no interface of that name\n");
}

TEST_F(PingAllowance, ShowsEveryInterface)
{
    unsigned char entries[2][interface_entry::kSize]{};
    interface_entry::name.set(entries[0], "eth0");
    interface_entry::flags.set(entries[0], interface_entry::kSystemLan);
    interface_entry::name.set(entries[1], "eth1");
    interface_entry::flags.set(entries[1], interface_entry::kWan | interface_entry::kPingAllowed);
    set_table(code::kReadInterfaces, {reinterpret_cast<const char*>(entries), sizeof entries});
    EXPECT_EQ(run(CliShowPing),
              " name            internet ping\n eth0            disabled\n eth1            enabled\n");
}
}  // namespace
