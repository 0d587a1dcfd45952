// The log commands against a service that keeps what they write.
#include "commands/command_session.h"
#include "service/fields/system_log.h"
#include "values/log_facility.h"

namespace {
constexpr std::uint32_t kDisableLog = 21, kEnableLog = 29, kEnableLogLevel = 30, kShowLogTableOf = 82;

std::string facility_row(const char* name, std::uint8_t log, std::uint8_t trace)
{
    using namespace facility_entry;
    return row_of<kSize>(facility, logNameToFacility(name), facility_entry::log, log, facility_entry::trace, trace);
}

using LogCommands = CommandSession;

struct Case {
    const char* name;
    std::uint32_t command;
    const char* facility;
    Word level;  // 0: none typed
    const char* printed;
    std::uint16_t last;  // code that was sent
};
constexpr char kAlreadyOn[] = " Error: Syslog facility is already enabled\a\n";
constexpr char kAlreadyOff[] = " Error: Syslog facility is already disabled\a\n";
// clang-format off
constexpr Case kCases[] = {
    {"On",           kEnableLog,      "nat",    0, "Log of nat: enabled\n",  code::kWriteLogFacility},
    {"OnAlready",    kEnableLog,      "system", 0, kAlreadyOn,               code::kReadLogFacilities},
    {"OnAtItsLevel", kEnableLogLevel, "dhcp",   4, kAlreadyOn,               code::kReadLogFacilities},
    {"OtherLevel",   kEnableLogLevel, "dhcp",   3, "Log of dhcp: level 3\n", code::kWriteLogFacility},
    {"OffAlready",   kDisableLog,     "nat",    0, kAlreadyOff,              code::kReadLogFacilities},
};
// clang-format on
TEST_F(LogCommands, AFacilityIsSwitchedOnlyWhenItChanges)
{
    set_table(code::kReadLogFacilities, facility_row("system", kFacilityOn, kFacilityOff) +
                                            facility_row("dhcp", 4, kFacilityOff) +
                                            facility_row("nat", kFacilityOff, 7));
    for (const Case& each : kCases) {
        RunningAction action(each.command);
        action.text(each.facility);
        if (each.level) action.number(each.level);
        EXPECT_EQ(action.run(), each.printed) << each.name;
        EXPECT_EQ(codes().back(), each.last) << each.name;
    }
}

TEST_F(LogCommands, AnUnknownFacilityBringsTheList)
{
    for (const std::uint32_t command : {kEnableLog, kShowLogTableOf}) {
        const std::string printed = RunningAction(command).text("Dhcp").run();
        EXPECT_TRUE(printed.starts_with(" Error: Syslog facility should be one of those listed\a\n system "));
        EXPECT_TRUE(printed.ends_with("rip        \n")) << printed;
    }
    EXPECT_TRUE(codes().empty());
}
}  // namespace
