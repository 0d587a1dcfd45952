#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/time.h"

namespace {
using namespace time_record;

constexpr char kAskZone[] = " enter timezone (GMT+00:00): ";
constexpr char kAskByAddress[] = " enter time server by IP address (No, yes/no): ";
constexpr char kAskAddress[] = " enter time server IP (Unspecified): ";
constexpr char kAskName[] = " enter time server domain name (time.example): ";
constexpr char kAskNoName[] = " enter time server domain name (Unspecified): ";
constexpr char kAskInterval[] = " enter request interval (24, 1-720): ";
constexpr char kAskEnable[] = " enable ntp (yes, yes/no): ";

class NtpClient : public CommandSession {
protected:
    NtpClient() { fill(time(), now, 1000000000, zone, kZoneNotSet, serverName, "time.example", interval, 24); }
    ComParam& time() { return record(code::kReadTime); }
};

TEST_F(NtpClient, EnterThroughoutEnablesAndWritesOnlyThen)
{
    EXPECT_EQ(run(CliSetNtpClient), kAskZone);
    for (const char* printed : {kAskByAddress, kAskName, kAskInterval, kAskEnable}) EXPECT_EQ(answer(""), printed);
    EXPECT_TRUE(answer("").starts_with("NTP state:                    Enabled"));
    EXPECT_EQ(sent(code::kWriteNtpClient), 1u);

    run(CliSetNtpClient);
    answers({"", "", "", "", ""});
    EXPECT_EQ(sent(code::kWriteNtpClient), 1u) << "nothing has changed the second time";
}

TEST_F(NtpClient, EveryAnswerReachesItsField)
{
    const ComParam wanted = rewritten(code::kReadTime, code::kWriteNtpClient, zone, 4, serverByAddress, 1,
                                      serverAddress, 0x0A000001, interval, 720);
    run(CliSetNtpClient);
    EXPECT_EQ(answer("-08:00"), kAskByAddress);
    EXPECT_EQ(answer("Ye"), kAskAddress);
    EXPECT_EQ(answer("10.0.0.1"), kAskInterval);
    EXPECT_EQ(answer("721"), refusal("Invalid interval value should be 1~720", kAskInterval));
    EXPECT_EQ(answer("720"), kAskEnable);
    EXPECT_TRUE(answer("no").starts_with("NTP state:                    Disabled"));
    EXPECT_TRUE(was_sent(wanted));
}

// The answer is looked for in the display names as it was typed; the last name that has it wins.
TEST_F(NtpClient, AZoneIsFoundAsTheTableWritesIt)
{
    for (const auto& [typed, index] : {std::pair{"+05:30", 21},
                                       {"+5:30", -1},
                                       {"-3:30", -1},
                                       {"-03:30", 9},
                                       {"0:00", 28},
                                       {"+00:00", 13},
                                       {"-00:00", -1},
                                       {"08:00", 25},
                                       {"-12:00", 0},
                                       {"1:00", 29},
                                       {"+05:30.", -1}}) {
        zone.set(time(), -1);
        run(CliSetNtpClient);
        EXPECT_EQ(answer(typed), kAskByAddress);
        answers({"", "", "", ""});
        EXPECT_EQ(zone.get(time()), index) << typed;
    }
}

TEST_F(NtpClient, AServerIsRequired)
{
    serverName.set(time(), "");
    for (const auto& [byAddress, question, missing, given] :
         {std::tuple{"yes", kAskAddress, " Please sepcifiy IP address.\n", "10.0.0.1"},
          {"no", kAskNoName, " Please sepcifiy domain name.\n", "time.example"}}) {
        run(CliSetNtpClient);
        EXPECT_EQ(answers({"", byAddress}), question);
        EXPECT_EQ(answer(""), std::string(missing) + question);
        EXPECT_EQ(answer(given), kAskInterval);
    }
}

TEST_F(NtpClient, OnlyALowerCaseYEnables)
{
    for (const auto& [word, enabled] : {std::pair{"YES", 0}, {"yes", 1}, {"N", 0}, {"yE", 1}}) {
        run(CliSetNtpClient);
        answers({"", "", "", "", word});
        EXPECT_EQ(ntpEnabled.get(time()), enabled) << word;
    }
}
}  // namespace
