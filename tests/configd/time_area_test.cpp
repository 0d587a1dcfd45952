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
        return ask(to_write(code::kReadTime, code::kWriteTime, now, seconds, zone, index));
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
}  // namespace
