#include <string>

#include "configd/area_session.h"
#include "service/fields/time.h"

namespace {
using namespace time_record;

constexpr std::uint32_t kMachineTime = 1'000'000'000;

class TimeArea : public AreaSession {
protected:
    void use(ClockMeans means)
    {
        profile.clock = means;
        start();
    }
    std::uint32_t set_time(std::uint32_t seconds, std::int16_t index = kZoneNotSet)
    {
        ComParam made = to_write(code::kReadTime, code::kWriteTime);
        now.set(made, seconds);
        zone.set(made, index);
        return ask(made);
    }
    std::uint32_t shown()
    {
        ask(code::kReadTime);
        return now.get(answer.record);
    }
};

TEST_F(TimeArea, TheMachinesClockIsSetOrTheRefusalTold)
{
    use(ClockMeans::kDevice);
    EXPECT_EQ(shown(), kMachineTime);
    EXPECT_EQ(set_time(2'000'000'000), kStatusOk);
    EXPECT_EQ(machine.clock, 2'000'000'000);
    EXPECT_EQ(shown(), 2'000'000'000u);

    machine.error = EPERM;
    EXPECT_EQ(set_time(kMachineTime, 5), kStatusNotPermitted);
    EXPECT_EQ(machine.clock, 2'000'000'000);
    ask(code::kReadTime);
    EXPECT_EQ(zone.get(answer.record), kZoneNotSet) << "refused as a whole";
    EXPECT_EQ(set_time(2'000'000'000, 5), kStatusOk) << "a clock that is right already is left alone";
    EXPECT_EQ(set_time(2'000'000'001, 6), kStatusOk);
}

TEST_F(TimeArea, AnOffsetLeavesTheMachineAlone)
{
    use(ClockMeans::kOffset);
    EXPECT_EQ(set_time(2'000'000'000), kStatusOk);
    EXPECT_EQ(machine.clock, kMachineTime);
    machine.clock += 100;
    EXPECT_EQ(shown(), 2'000'000'100u);
    start();
    EXPECT_EQ(shown(), 2'000'000'100u);
    EXPECT_EQ(set_time(0), kStatusOk);
    EXPECT_EQ(shown(), 0u);
    EXPECT_EQ(set_time(UINT32_MAX), kStatusValueRefused) << "further than an offset can be stored";
    EXPECT_EQ(shown(), 0u);
    ask(code::kClearConfiguration);
    EXPECT_EQ(shown(), kMachineTime + 100);
}

struct ClientCase {
    const char* name;
    std::uint8_t enabled, byAddress;
    const char* serverName;
    std::uint32_t address, hours;
    ServiceStatus status;
};
const std::string kFullField(51, 'n');
const ClientCase kClients[] = {
    {"ByName", 1, 0, "time.example", 0, 1, kStatusOk},
    {"OnWithoutAName", 1, 0, "", 0x0A000001, 24, kStatusNoTimeServer},
    {"NameWithControl", 0, 0, "time\033[2J", 0, 24, kStatusValueRefused},
    {"NameWithoutNul", 0, 0, kFullField.c_str(), 0, 24, kStatusValueRefused},
    {"AddressIsNoHost", 0, 1, "", 0xFFFFFFFF, 24, kStatusValueRefused},
};
TEST_F(TimeArea, TheNtpClientIsTakenOrRefusedAsAWhole)
{
    for (const ClientCase& each : kClients) {
        ASSERT_EQ(ask(code::kClearConfiguration), kStatusOk);
        ComParam made = to_write(code::kReadTime, code::kWriteNtpClient);
        now.set(made, 1);  // none of this operation's business
        zone.set(made, 21);
        ntpEnabled.set(made, each.enabled);
        serverByAddress.set(made, each.byAddress);
        std::memset(made.bytes + serverName.at.offset, 0, serverName.at.width);
        std::memcpy(made.bytes + serverName.at.offset, each.serverName, std::strlen(each.serverName));
        serverAddress.set(made, each.address);
        interval.set(made, each.hours);
        EXPECT_EQ(ask(made), each.status) << each.name;

        const bool taken = each.status == kStatusOk;
        EXPECT_EQ(shown(), kMachineTime);
        EXPECT_EQ(zone.get(answer.record), taken ? 21 : kZoneNotSet) << each.name;
        EXPECT_EQ(interval.get(answer.record), taken ? each.hours : 24) << each.name;
        EXPECT_STREQ(serverName.get(answer.record), taken ? each.serverName : "pool.ntp.org") << each.name;
    }
}
TEST_F(TimeArea, TheDevicesTimeServiceIsHandedTheServer)
{
    constexpr const char* kFile = "run/timesyncd.conf";
    service->timeRules = RuleFile(storage.operations(), "run", RuleFile::kTimeName);
    ComParam made = to_write(code::kReadTime, code::kWriteNtpClient);
    ntpEnabled.set(made, 1);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(storage.files[kFile], "# Made by configd of its settings.\n[Time]\nPollIntervalMinSec=86400\n"
                                    "PollIntervalMaxSec=86400\nNTP=pool.ntp.org\n");
    serverByAddress.set(made, 1);
    serverAddress.set(made, 0x0A000001);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_TRUE(storage.files[kFile].ends_with("\nNTP=10.0.0.1\n"));
    ntpEnabled.set(made, 0);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(storage.files[kFile], "# Made by configd of its settings.\n");
}
}  // namespace
