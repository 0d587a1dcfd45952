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

TEST_F(ManagementAccess, TheOtherValuesGoStraightToTheService)
{
    EXPECT_EQ(run(CliSetHttpTimeout, {60}), "   HTTP port:   80          Timeout: 60 mins\n");
    ComParam wanted = written();
    management_record::httpTimeout.set(wanted, 60);
    EXPECT_TRUE(same_record(last_request(), wanted));
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
        {"FromOneToTwo",
         kRemoteOne,
         kFirstClient,
         0,
         {"", "2", "", "10.0.0.2"},
         kRemoteTwo,
         kFirstClient,
         kSecondClient},
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
    EXPECT_EQ(answer(std::string(51, 'a').c_str()), refusal("Line length is too long.", askHostname));
    EXPECT_EQ(answer("my_host"), askUsername);
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
}
}  // namespace
