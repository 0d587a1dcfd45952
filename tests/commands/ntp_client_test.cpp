#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/time.h"

namespace {
using namespace time_record;

constexpr char kAskByAddress[] = " enter time server by IP address (No, yes/no): ";
constexpr char kAskAddress[] = " enter time server IP (Unspecified): ";
constexpr char kAskNoName[] = " enter time server domain name (Unspecified): ";
constexpr char kAskInterval[] = " enter request interval (24, 1-720): ";

class NtpClient : public CommandSession {
protected:
    NtpClient() { fill(time(), now, 1000000000, zone, kZoneNotSet, serverName, "time.example", interval, 24); }
    ComParam& time() { return record(code::kReadTime); }
};

// The answer is looked for in the display names as it was typed; the last name that has it wins.
TEST_F(NtpClient, AZoneIsFoundAsTheTableWritesIt)
{
    for (const auto& [typed, index] :
         {std::pair{"+05:30", 21}, {"+5:30", -1}, {"0:00", 28}, {"+00:00", 13}, {"+05:30.", -1}}) {
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
