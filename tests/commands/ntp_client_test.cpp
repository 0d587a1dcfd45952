#include <array>

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

TEST_F(NtpClient, ShowsSixLines)
{
    EXPECT_EQ(run(CliShowNtpClient), "NTP state:                    Disabled                 \n"
                                     "Timezone:                     GMT+00:00                \n"
                                     "Time server type:             Domain Name              \n"
                                     "Time server domain name:      time.example             \n"
                                     "Time server IP address:       Unspecified              \n"
                                     "Request interval:             24 (hour)                \n");
    time_record::ntpEnabled.set(time(), 1);
    time_record::zone.set(time(), 21);
    time_record::serverByAddress.set(time(), 1);
    time_record::serverAddress.set(time(), 0x0A000001);
    time_record::serverName.set(time(), "");
    EXPECT_EQ(run(CliShowNtpClient), "NTP state:                    Enabled                  \n"
                                     "Timezone:                     GMT+05:30                \n"
                                     "Time server type:             IP                       \n"
                                     "Time server domain name:      Unspecified              \n"
                                     "Time server IP address:       10.0.0.1                 \n"
                                     "Request interval:             24 (hour)                \n");
}

TEST_F(NtpClient, ANonsenseZoneShowsAsGmt)
{
    for (const auto index : std::to_array<std::int16_t>({-2, 32, 32767, -32768})) {
        time_record::zone.set(time(), index);
        EXPECT_NE(run(CliShowNtpClient).find("GMT+00:00"), std::string::npos) << index;
    }
}

TEST_F(NtpClient, IsSwitched)
{
    EXPECT_EQ(run(CliEnableNtpClient), "NTP has been enabled to synchronzied time automatically.\n");
    EXPECT_EQ(time_record::ntpEnabled.get(time()), 1);
    EXPECT_EQ(run(CliDisableNtpClient), "NTP has been disabled, please set time menually.\n");
    EXPECT_EQ(time_record::ntpEnabled.get(time()), 0);
    EXPECT_EQ(codes(), (std::vector<std::uint16_t>{code::kReadTime, code::kWriteNtpClient, code::kReadTime,
                                                   code::kWriteNtpClient}));
    refused[code::kWriteNtpClient] = kStatusNoTimeServer;
    EXPECT_EQ(run(CliEnableNtpClient), "\aNo time server is set for the NTP client\n");
    refused[code::kReadTime] = kStatusValueRefused;
    EXPECT_EQ(run(CliShowNtpClient), "\aThe date, time or time server is not acceptable\n");
    EXPECT_EQ(run(CliSetNtpClient), "\aThe date, time or time server is not acceptable\n");
    EXPECT_FALSE(asking());
}

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
    EXPECT_EQ(answer(std::string(51, 'n').c_str()), std::string(" Error: Line length is too long.\a\n") + kAskNoName);
    EXPECT_EQ(answer("two words"), std::string(" Error: Please specify time server domain name\a\n") + kAskNoName);
    EXPECT_EQ(answer(std::string(50, 'n').c_str()), kAskInterval);
    answers({"", ""});
    EXPECT_EQ(time_record::serverName.length(time()), 50u);
}

TEST_F(NtpClient, RefusedAnswersBringTheQuestionBack)
{
    const std::string zone =
        " Error: Time zone should be the differences between local time and GMT. (e.g.:\n -8:00 for "
        "Pacific Time)\a\n";
    run(CliSetNtpClient);
    EXPECT_EQ(answer("8"), zone + kAskZone);
    EXPECT_EQ(answer("+13:00"), zone + kAskZone);
    EXPECT_EQ(answers({"", "perhaps"}),
              std::string(" Error: Action confirm word must be \"yes\" or \"no\"\a\n") + kAskByAddress);
    EXPECT_EQ(answers({"yes", "10.0.0"}), std::string(" Error: Invalid IP address\a\n") + kAskAddress);
    for (const char* interval : {"0", "721", "1h"})
        EXPECT_EQ(answers({"10.0.0.1", interval}).substr(0, 48), " Error: Invalid interval value should be 1~720\a\n");
    EXPECT_EQ(sent(code::kWriteNtpClient), 0u);
}

TEST_F(NtpClient, OnlyALowerCaseYEnables)
{
    for (const auto& [text, enabled] : {std::pair{"YES", 0}, {"yes", 1}, {"N", 0}, {"yE", 1}}) {
        run(CliSetNtpClient);
        answers({"", "", "", "", text});
        EXPECT_EQ(time_record::ntpEnabled.get(time()), enabled) << text;
    }
}

TEST_F(NtpClient, AFailedWriteIsReportedInItsGroup)
{
    refused[code::kWriteNtpClient] = kStatusNotPermitted;
    run(CliSetNtpClient);
    EXPECT_EQ(answers({"", "", "", "", ""}),
              "\aThe configuration service is not allowed to set the time zone of this device\n");
    EXPECT_FALSE(asking());
}
}  // namespace
