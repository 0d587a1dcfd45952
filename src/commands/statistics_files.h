// Where interface counters come from: /proc/net/dev (proc(5)), and the file that keeps the counters as they were when
// they were last cleared. That file lies in /tmp, where anybody may put anything: it is opened without following
// links, must be a plain file of this user with no other name, and nothing but its numbers is believed.
#pragma once

#include <cstdint>
#include <span>

#include "commands/interface_list.h"

struct StatisticsRow {
    static constexpr int kCounters = 6;
    char name[kInterfaceNameSize];
    std::uint32_t counter[kCounters];  // received packets, errors, drops; transmitted packets, errors, drops
};

struct StatisticsTable {
    StatisticsRow row[kMaxInterfaces];
    int count;
    std::span<StatisticsRow> rows() { return {row, static_cast<std::size_t>(count)}; }
};

// The paths; tests put their own files in their place.
struct StatisticsPaths {
    const char* kernel = "/proc/net/dev";
    const char* offsets = "/tmp/ifStatsOffFile";
};
extern StatisticsPaths statisticsPaths;

// All print why they failed. 0, or 1 for a failure.
int CliInitIfStatsOffsets();                        // a zero line for every interface
int CliReadIfStatsOffsets(StatisticsTable& table);  // rows of interfaces that are in the list
int CliReadIfStatsProc(StatisticsTable& table);

bool offset_file_readable();
bool write_offset_file(StatisticsTable& table);  // the whole file; prints that it failed
