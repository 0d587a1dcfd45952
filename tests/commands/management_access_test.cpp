// Management access and dynamic DNS: what is asked, what is sent, what stands on the screen.
#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/ddns.h"
#include "service/fields/management.h"

namespace {
using namespace management_record;

constexpr std::uint32_t kFirst = 0x0A000001, kSecond = 0x0A000002;

class ManagementAccess : public CommandSession {
protected:
    ManagementAccess()
    {
        fill(held(), httpPort, 80, httpTimeout, 10, telnetPort, 23, sessionTimeout, 15, remoteMode, kRemoteDisabled);
    }
    ComParam& held() { return record(code::kReadManagement); }
    // What was read, as it goes back with a change.
    template <class... Fields> ComParam written(const Fields&... fields)
    {
        return rewritten(code::kReadManagement, code::kWriteManagement, fields...);
    }
    void hold(std::uint8_t mode, std::uint32_t first, std::uint32_t second)
    {
        fill(held(), remoteMode, mode, remoteClient[0], first, remoteClient[1], second);
    }
};

TEST_F(ManagementAccess, TheHttpPortChangesOnlyAfterAYes)
{
    constexpr char kWarning[] = " warning: changing the port number will close existing sessions; do you want to "
                                "continue(no, yes/no):";
    constexpr char kUnchanged[] = "The HTTP port has not been changed.\n   HTTP port:   80          Timeout: 10 mins\n";
    for (const auto& [word, screen] :
         {std::pair{"", kUnchanged},
          {"YES", " The HTTP port has been changed.\n   HTTP port:   65535       Timeout: 10 mins\n"}}) {
        EXPECT_EQ(sent(code::kWriteManagement), 0u);
        EXPECT_EQ(run(CliSetHttpPort, {65535}), kWarning);
        EXPECT_EQ(answer("maybe"), refusal("Action confirm word must be \"yes\" or \"no\"", kWarning));
        EXPECT_EQ(answer(word), screen) << word;
    }
    EXPECT_TRUE(was_sent(written(httpPort, 65535)));
}

TEST_F(ManagementAccess, HttpAndTelnetDoNotShareAPort)
{
    for (const auto& [command, taken] : {std::pair<Action, Word>{CliSetHttpPort, 23}, {CliSetTelnetPort, 80}})
        EXPECT_EQ(run(command, {taken}), refusal("Port number is already in use"));
    EXPECT_EQ(sent(code::kWriteManagement), 0u);
}

TEST_F(ManagementAccess, TheAnswersDecideWhichClientsMayComeIn)
{
    struct {
        const char* name;
        std::uint8_t mode;
        std::uint32_t first, second;
        std::initializer_list<const char*> answers;
        std::uint8_t newMode;
        std::uint32_t newFirst, newSecond;
    } const kCases[] = {
        // clang-format off
        {"FromOneToTwo",  kRemoteOne,      kFirst, 0,       {"", "2", "", "10.0.0.2"}, kRemoteTwo,      kFirst, kSecond},
        {"FromTwoToOne",  kRemoteTwo,      kFirst, kSecond, {"", "1", ""},             kRemoteOne,      kFirst, 0},
        {"StaysDisabled", kRemoteDisabled, 0,      0,       {"no", "1", "10.0.0.1"},   kRemoteDisabled, kFirst, 0},
        // clang-format on
    };
    for (const auto& c : kCases) {
        hold(c.mode, c.first, c.second);
        run(CliSetRmtmgnt);
        answers(c.answers);
        EXPECT_FALSE(asking()) << c.name;
        EXPECT_TRUE(was_sent(written(remoteMode, c.newMode, remoteClient[0], c.newFirst, remoteClient[1], c.newSecond)))
            << c.name;
    }
}

TEST_F(ManagementAccess, AsksAgainForWhatIsNoClient)
{
    const std::string count = " enter number of remote management clients (1, 1~2): ",
                      first = " enter IP address of the remote management client 1 (Unspecified): ",
                      second = " enter IP address of the remote management client 2 (Unspecified): ";
    EXPECT_EQ(run(CliSetRmtmgnt), " allow all remote management client (yes, yes/no): ");
    const std::pair<const char*, std::string> kAnswers[] = {
        {"no", count},
        {"3", refusal("Number of remote management clients should be 1 to 2", count)},
        {"2", first},
        {"", refusal("Remote management client must be an IP address", first)},
        {"127.0.0.1", refusal("IP Address can not be the Loopback", first)},
        {"224.0.0.9", refusal("IP address can not be a multicast address", first)},
        {"10.0.0.1", second},
        {"10.0.0.1", refusal("Entry already exists", second)},
        {"10.0.0.2", "   Remote management:       disabled\n   Allowed client:          10.0.0.1\n"
                     "   Allowed client:          10.0.0.2\n"},
    };
    for (const auto& [typed, printed] : kAnswers) EXPECT_EQ(answer(typed), printed) << typed;
}

TEST_F(ManagementAccess, EnablingBringsTheSameClientsBack)
{
    for (const auto& [first, second, mode] : {std::tuple{kFirst, kSecond, kRemoteTwo}, {0u, 0u, kRemoteAll}}) {
        hold(kRemoteDisabled, first, second);
        run(CliEnableRmtmgnt);
        EXPECT_TRUE(was_sent(written(remoteMode, mode)));
    }
}

class Ddns : public CommandSession {
protected:
    ComParam& held() { return record(code::kReadDdns); }
    static bool password_is_forgotten()
    {
        using ddns_record::password;
        return password.length(usrComParam) + password.length(wizardParam) + password.length(oldWizardParam) == 0;
    }
};

TEST_F(Ddns, AsksFourQuestionsAndForgetsThePassword)
{
    EXPECT_EQ(run(CliSetDdns), " enable DDNS (no, yes/no): ");
    const std::string askHostname = " enter hostname (Unspecified): ", askUsername = " enter username (Unspecified): ";
    EXPECT_EQ(answer("y"), askHostname);
    EXPECT_EQ(answer(""), refusal("Hostname must not be empty", askHostname));
    EXPECT_EQ(answer(std::string(51, 'a')), refusal("Line length is too long.", askHostname));
    EXPECT_EQ(answer("my_host"), askUsername);
    EXPECT_EQ(answer(""), refusal("DDNS username must not be empty", askUsername));
    EXPECT_EQ(answer("fred"), " enter password (Unspecified): ");
    EXPECT_TRUE(stage() & kUnseenStage);
    answer("not-for-eyes");
    EXPECT_FALSE(asking());
    using namespace ddns_record;
    EXPECT_TRUE(was_sent(rewritten(code::kReadDdns, code::kWriteDdns, enabled, 1, hostname, "my_host", username, "fred",
                                   password, "not-for-eyes")));
    EXPECT_TRUE(password_is_forgotten());
}

TEST_F(Ddns, AStoredPasswordIsStarsAndUnchangedAnswersWriteNothing)
{
    fill(held(), ddns_record::hostname, "my_host", ddns_record::passwordSet, 1);
    run(CliSetDdns);
    EXPECT_EQ(answers({"", "", ""}), " enter password (********): ");
    EXPECT_EQ(answer(""), "   DDNS:                    disabled\n   Hostname:                my_host\n"
                          "   Username:                Unspecified\n   Password:                ********\n");
    EXPECT_EQ(sent(code::kWriteDdns), 0u);

    refused[code::kWriteDdns] = kStatusStorageFull;
    run(CliSetDdns);
    EXPECT_EQ(answers({"", "", "", "not-for-eyes"}), "\aThe configuration could not be stored: no space is left\n");
    EXPECT_TRUE(password_is_forgotten());
}

}  // namespace
