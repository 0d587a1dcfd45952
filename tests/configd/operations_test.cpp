#include <set>

#include "configd/area_session.h"
#include "service/fields/management.h"
#include "service/fields/system.h"
#include "service/fields/wireless_port.h"

namespace {
class Operations : public AreaSession {};

TEST_F(Operations, EachCodeHasOneRow)
{
    std::set<std::uint16_t> seen;
    for (const Area* area : areas()) {
        for (const Operation& each : area->operations) EXPECT_TRUE(seen.insert(each.code).second) << each.code;
    }
}

TEST_F(Operations, AnyOtherRecordChangesOnlyThePrompt)
{
    for (const std::uint16_t before : {code::kReadManagement, code::kReadWirelessPort}) {
        const auto made =
            to_write(before, code::kWriteSystem, system_record::prompt, "AP", system_record::name, "left over");
        EXPECT_EQ(ask(made), kStatusOk) << before;
    }
    ask(code::kReadSystem);
    EXPECT_STREQ(system_record::prompt.get(answer.record), "AP");
    EXPECT_STREQ(system_record::name.get(answer.record), "router");
    EXPECT_EQ(ask(to_write(code::kReadSystem, code::kWriteSystem, system_record::name, "")), kStatusOk);
    ask(code::kReadSystem);
    EXPECT_STREQ(system_record::name.get(answer.record), "router") << "empty keeps";

    EXPECT_EQ(ask(to_write(code::kReadSystem, code::kWriteSystem, system_record::lanMac, "\2\0\0\0\0\x77",
                           system_record::name, "other")),
              kStatusOk);
    EXPECT_STREQ(system_record::name.get(answer.record), "router");
}

TEST_F(Operations, RestartGoesBackToSavedOrRestartsTheMachine)
{
    const ComParam made = to_write(code::kReadManagement, code::kWriteManagement, management_record::httpPort, 8080);
    ask(made);
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(machine.restarts, 0);
    ask(code::kReadManagement);
    EXPECT_EQ(management_record::httpPort.get(answer.record), 80);

    profile.restart = RestartMeans::kDevice;
    start();
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(machine.restarts, 1);
    machine.error = EPERM;
    EXPECT_EQ(ask(code::kRestart), kStatusNotPermitted);
}
}  // namespace
