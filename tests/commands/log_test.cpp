// The log commands against a service that keeps what they write.
#include <gtest/gtest.h>

#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "platform/ipc_client.h"
#include "service/codes.h"
#include "service/fields/log_table.h"
#include "service/fields/system_log.h"
#include "service/status.h"
#include "values/log_facility.h"

namespace {
constexpr std::uint32_t kDisableLog = 21, kDisableSyslogd = 24, kEnableLog = 29, kEnableLogLevel = 30,
                        kEnableSyslogd = 33, kEnableTrace = 34, kSetLogLevel = 50, kSetSyslogd = 66, kShowLogTable = 81,
                        kShowLogTableOf = 82, kShowSyslogd = 99, kShowLogLevel = 113;

std::string facility_row(const char* name, std::uint8_t log, std::uint8_t trace)
{
    unsigned char entry[facility_entry::kSize] = {};
    facility_entry::facility.set(entry, logNameToFacility(name));
    facility_entry::log.set(entry, log);
    facility_entry::trace.set(entry, trace);
    return {reinterpret_cast<const char*>(entry), sizeof entry};
}

std::string log_row(std::uint32_t time, const char* facility, std::uint8_t level, const char* text)
{
    unsigned char entry[log_entry::kSize] = {};
    log_entry::time.set(entry, time);
    log_entry::facility.set(entry, logNameToFacility(facility));
    log_entry::level.set(entry, level);
    log_entry::text.set(entry, text);
    return {reinterpret_cast<const char*>(entry), sizeof entry};
}

class LogCommands : public testing::Test {
protected:
    void SetUp() override
    {
        setenv("TZ", "UTC", 1);
        tzset();
        service_stand_in::reset([this](ComParam& record, std::string& table) { return serve(record, table); });
    }
    void TearDown() override { EXPECT_EQ(service_stand_in::unreleased(), 0); }

    std::uint32_t serve(ComParam& record, std::string& table)
    {
        switch (record::code.get(record)) {
        case code::kReadSystemLog: record = settings; break;
        case code::kWriteLogLevel:
        case code::kWriteSyslog: settings = record; break;
        case code::kReadLogFacilities: table = facilities; break;
        case code::kReadLogTable: table = log; break;
        default: break;
        }
        record::status.set(record, status);
        return exchange;
    }

    ComParam settings{};
    std::string facilities = facility_row("system", kFacilityOn, kFacilityOff) + facility_row("dhcp", 4, kFacilityOff) +
                             facility_row("nat", kFacilityOff, 7);
    std::string log = log_row(0, "system", 5, "first") + log_row(86400, "dhcp", 4, "second");
    std::uint32_t status = 0, exchange = 0;
};

TEST_F(LogCommands, TheLevelIsSetAndShownWithItsFacilities)
{
    EXPECT_EQ(RunningAction(kSetLogLevel).number(5).run(), "System log level: 5\n");
    EXPECT_EQ(RunningAction(kShowLogLevel).run(), "System log level: 5\n\n"
                                                  "Facility    Log         Trace\n"
                                                  "---------------------------------\n"
                                                  "system      enabled     disabled\n"
                                                  "dhcp        level 4     disabled\n"
                                                  "nat         disabled    level 7\n");
}

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
    {"NoLongerItsLevel", kEnableLog, "dhcp", 0, "Log of dhcp: enabled\n", code::kWriteLogFacility},
    {"Off", kDisableLog, "dhcp", 0, "Log of dhcp: disabled\n", code::kWriteLogFacility},
    {"OffAlready", kDisableLog, "nat", 0, kAlreadyOff, 0},
    {"Trace", kEnableTrace, "dhcp", 0, "Trace of dhcp: enabled\n", code::kWriteTraceFacility},
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

TEST_F(LogCommands, TheTableIsShownAsItComes)
{
    EXPECT_EQ(RunningAction(kShowLogTable).run(),
              "Time              Facility  Level Message\n"
              "------------------------------------------------------------------------------\n"
              "01-01-70 00:00:00 system    5     first\n"
              "01-02-70 00:00:00 dhcp      4     second\n");
    RunningAction(kShowLogTableOf).text("dhcp").run();
    EXPECT_EQ(log_table_request::facility.get(service_stand_in::requests().back()), logNameToFacility("dhcp"));
}

TEST_F(LogCommands, TheSyslogServerIsSetBeforeItIsEnabled)
{
    constexpr char kOff[] = "        Remote syslog:            disabled\n"
                            "        Syslog server IP address: 10.0.0.9\n";
    constexpr char kOn[] = "        Remote syslog:            enabled\n"
                           "        Syslog server IP address: 10.0.0.9\n";
    EXPECT_EQ(RunningAction(kEnableSyslogd).run(),
              "There is no syslog server yet: set one with \"set syslogd <IP address>\"\n");
    EXPECT_EQ(RunningAction(kSetSyslogd).number(0).run(), " Error: IP address can not be 0.0.0.0 \a\n");
    EXPECT_EQ(RunningAction(kSetSyslogd).number(0xFFFFFFFF).run(),
              " Error: IP address can not be 255.255.255.255 \a\n");
    EXPECT_EQ(RunningAction(kSetSyslogd).number(0x0A000009).run(), kOff);
    EXPECT_EQ(RunningAction(kEnableSyslogd).run(), kOn);
    EXPECT_EQ(RunningAction(kShowSyslogd).run(), kOn);
    EXPECT_EQ(RunningAction(kDisableSyslogd).run(), kOff);
}

TEST_F(LogCommands, AServiceThatRefusesOrIsGoneIsReported)
{
    struct Command {
        std::uint32_t id;
        bool facility;
    };
    for (const Command each : {Command{kSetLogLevel, false},
                               {kShowLogLevel, false},
                               {kShowLogTable, false},
                               {kEnableLog, true},
                               {kSetSyslogd, false},
                               {kShowSyslogd, false}}) {
        exchange = 0;
        status = kStatusValueRefused;
        const auto run = [&] {
            RunningAction action(each.id);
            each.facility ? action.text("dhcp") : action.number(7);
            return action.run();
        };
        EXPECT_EQ(run(), "\aThe log settings are not acceptable\n") << each.id;
        exchange = IPC_NOT_RUNNING;
        EXPECT_EQ(run(), "\aThe configuration service is not running\n") << each.id;
    }
}
}  // namespace
