#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/time.h"

namespace {
constexpr char kAskZone[] = " enter timezone (GMT+00:00): ";
constexpr char kAskByAddress[] = " enter time server by IP address (No, yes/no): ";
constexpr char kAskAddress[] = " enter time server IP (Unspecified): ";
constexpr char kAskName[] = " enter time server domain name (time.example): ";
constexpr char kAskNoName[] = " enter time server domain name (Unspecified): ";
constexpr char kAskInterval[] = " enter request interval (24, 1-720): ";
constexpr char kAskEnable[] = " enable ntp (yes, yes/no): ";

class NtpClient : public CommandSession {
protected:
    NtpClient()
    {
        time_record::now.set(time(), 1000000000);
        time_record::zone.set(time(), time_record::kZoneNotSet);
        time_record::serverName.set(time(), "time.example");
        time_record::interval.set(time(), 24);
    }
    ComParam& time() { return record(code::kReadTime); }
};

TEST_F(NtpClient, EnterThroughoutEnablesAndWritesOnlyThen)
{
    EXPECT_EQ(run(CliSetNtpClient), kAskZone);
    EXPECT_EQ(answer(""), kAskByAddress);
    EXPECT_EQ(answer(""), kAskName);
    EXPECT_EQ(answer(""), kAskInterval);
    EXPECT_EQ(answer(""), kAskEnable);
    EXPECT_EQ(answer("").substr(0, 37), "NTP state:                    Enabled");
    EXPECT_EQ(sent(code::kWriteNtpClient), 1u);

    run(CliSetNtpClient);
    answers({"", "", "", "", ""});
    EXPECT_EQ(sent(code::kWriteNtpClient), 1u) << "nothing has changed the second time";
}

TEST_F(NtpClient, EveryAnswerReachesItsField)
{
    ComParam wanted = time();
    time_record::zone.set(wanted, 4);
    time_record::serverByAddress.set(wanted, 1);
    time_record::serverAddress.set(wanted, 0x0A000001);
    time_record::interval.set(wanted, 720);
    record::kind.set(wanted, record::kRequest);
    record::code.set(wanted, code::kWriteNtpClient);
    run(CliSetNtpClient);
    EXPECT_EQ(answer("-08:00"), kAskByAddress);
    EXPECT_EQ(answer("Ye"), kAskAddress);
    EXPECT_EQ(answer("10.0.0.1"), kAskInterval);
    EXPECT_EQ(answer("720"), kAskEnable);
    EXPECT_EQ(answer("no").substr(0, 38), "NTP state:                    Disabled");
    ASSERT_EQ(sent(code::kWriteNtpClient), 1u);
    EXPECT_TRUE(same_record(service_stand_in::requests().end()[-2], wanted));
}

struct ZoneAnswer {
    const char* answer;
    int index;
};
// The answer is looked for in the display names as it was typed; the last name that has it wins.
constexpr ZoneAnswer kZones[] = {{"+05:30", 21}, {"+5:30", -1},  {"-3:30", -1},  {"-03:30", 9},
                                 {"0:00", 28},   {"+00:00", 13}, {"-00:00", -1}, {"08:00", 25},
                                 {"-12:00", 0},  {"1:00", 29},   {"+05:30.", -1}};
TEST_F(NtpClient, AZoneIsFoundAsTheTableWritesIt)
{
    for (const ZoneAnswer& each : kZones) {
        time_record::zone.set(time(), -1);
        run(CliSetNtpClient);
        EXPECT_EQ(answer(each.answer), kAskByAddress);
        answers({"", "", "", ""});
        EXPECT_EQ(time_record::zone.get(time()), each.index) << each.answer;
    }
}

TEST_F(NtpClient, AServerIsRequired)
{
    time_record::serverName.set(time(), "");
    run(CliSetNtpClient);
    EXPECT_EQ(answers({"", "yes"}), kAskAddress);
    EXPECT_EQ(answer(""), std::string(" Please sepcifiy IP address.\n") + kAskAddress);
    EXPECT_EQ(answer("10.0.0.1"), kAskInterval);

    run(CliSetNtpClient);
    EXPECT_EQ(answers({"", "no"}), kAskNoName);
    EXPECT_EQ(answer(""), std::string(" Please sepcifiy domain name.\n") + kAskNoName);
}

TEST_F(NtpClient, OnlyALowerCaseYEnables)
{
    for (const auto& [text, enabled] : {std::pair{"YES", 0}, {"yes", 1}, {"N", 0}, {"yE", 1}}) {
        run(CliSetNtpClient);
        answers({"", "", "", "", text});
        EXPECT_EQ(time_record::ntpEnabled.get(time()), enabled) << text;
    }
}
}  // namespace
