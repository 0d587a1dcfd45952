// The log commands against a service that keeps what they write.
#include <gtest/gtest.h>

#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "service/codes.h"
#include "service/fields/system_log.h"
#include "values/log_facility.h"

namespace {
constexpr std::uint32_t kDisableLog = 21, kEnableLog = 29, kEnableLogLevel = 30, kShowLogTableOf = 82;

std::string facility_row(const char* name, std::uint8_t log, std::uint8_t trace)
{
    unsigned char entry[facility_entry::kSize] = {};
    facility_entry::facility.set(entry, logNameToFacility(name));
    facility_entry::log.set(entry, log);
    facility_entry::trace.set(entry, trace);
    return {reinterpret_cast<const char*>(entry), sizeof entry};
}

class LogCommands : public testing::Test {
protected:
    void SetUp() override
    {
        service_stand_in::reset([this](ComParam& record, std::string& table) {
            if (record::code.get(record) == code::kReadLogFacilities) table = facilities;
            record::status.set(record, 0);
            return std::uint32_t{0};
        });
    }
    void TearDown() override { EXPECT_EQ(service_stand_in::unreleased(), 0); }

    std::string facilities = facility_row("system", kFacilityOn, kFacilityOff) + facility_row("dhcp", 4, kFacilityOff) +
                             facility_row("nat", kFacilityOff, 7);
};

struct Case {
    const char* name;
    std::uint32_t command;
    const char* facility;
    int level;  // 0: none typed
    const char* printed;
    std::uint16_t written;  // 0: nothing
};
constexpr char kAlreadyOn[] = " Error: Syslog facility is already enabled\a\n";
constexpr char kAlreadyOff[] = " Error: Syslog facility is already disabled\a\n";
constexpr Case kCases[] = {
    {"On", kEnableLog, "nat", 0, "Log of nat: enabled\n", code::kWriteLogFacility},
    {"OnAlready", kEnableLog, "system", 0, kAlreadyOn, 0},
    {"OnAtItsLevel", kEnableLogLevel, "dhcp", 4, kAlreadyOn, 0},
    {"OtherLevel", kEnableLogLevel, "dhcp", 3, "Log of dhcp: level 3\n", code::kWriteLogFacility},
    {"OffAlready", kDisableLog, "nat", 0, kAlreadyOff, 0},
};
TEST_F(LogCommands, AFacilityIsSwitchedOnlyWhenItChanges)
{
    for (const Case& each : kCases) {
        SetUp();
        RunningAction action(each.command);
        action.text(each.facility);
        if (each.level) action.number(static_cast<Word>(each.level));
        EXPECT_EQ(action.run(), each.printed) << each.name;
        EXPECT_EQ(service_stand_in::codes_sent().back(), each.written ? each.written : code::kReadLogFacilities)
            << each.name;
    }
}

TEST_F(LogCommands, AnUnknownFacilityBringsTheList)
{
    for (const std::uint32_t command : {kEnableLog, kShowLogTableOf}) {
        const std::string printed = RunningAction(command).text("Dhcp").run();
        EXPECT_TRUE(printed.starts_with(" Error: Syslog facility should be one of those listed\a\n system "));
        EXPECT_TRUE(printed.ends_with("rip        \n")) << printed;
    }
    EXPECT_TRUE(service_stand_in::requests().empty());
}
}  // namespace
