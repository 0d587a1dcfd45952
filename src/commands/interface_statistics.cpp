// Packet counters of the interfaces: the kernel's, less the counters that were kept aside when they were last cleared.
#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/interface_list.h"
#include "commands/statistics_files.h"

namespace {
constexpr char kHeader[] = " %-10s %-10s %-10s %-10s %-10s %-10s %-10s\n";
constexpr char kRow[] =
    " %-10s %-10" PRIu32 " %-10" PRIu32 " %-10" PRIu32 " %-10" PRIu32 " %-10" PRIu32 " %-10" PRIu32 "\n";
constexpr char kAll[] = "all";

bool same_name(const StatisticsRow& a, const StatisticsRow& b) { return std::strcmp(a.name, b.name) == 0; }

bool read_both(StatisticsTable& current, StatisticsTable& offsets)
{
    if (!offset_file_readable() && CliInitIfStatsOffsets() != 0) return false;
    return CliReadIfStatsProc(current) == 0 && CliReadIfStatsOffsets(offsets) == 0;
}

bool known_interface(const InterfaceNames& names, const char* name)
{
    if (names.has(name)) return true;
    std::printf(" no such interface!\n");
    return false;
}

// A counter below its offset wraps around: the kernel's was reset behind our back, and a large value shows it.
void print_difference(const StatisticsRow& now, const StatisticsRow& before)
{
    std::uint32_t since[StatisticsRow::kCounters];
    for (int i = 0; i < StatisticsRow::kCounters; ++i) since[i] = now.counter[i] - before.counter[i];
    std::printf(kRow, now.name, since[0], since[1], since[2], since[3], since[4], since[5]);
}
}  // namespace

void CliShowIfStats(ActionBlock& call, int)
{
    const char* only = call.parms.count ? text_parm(call, 0) : nullptr;
    InterfaceNames names;
    if (CliGetIfNames(names) == 0) return;
    if (only && !known_interface(names, only)) return;

    StatisticsTable current, offsets;
    if (!read_both(current, offsets)) return;

    std::printf(kHeader, "name", "rx-packet", "rx-error", "rx-drop", "tx-packet", "tx-error", "tx-drop");
    for (const StatisticsRow& now : current.rows()) {
        if (only && std::strcmp(now.name, only) != 0) continue;
        for (const StatisticsRow& before : offsets.rows())
            if (same_name(now, before)) print_difference(now, before);
    }
}

void CliClearIfStats(ActionBlock& call, int term)
{
    const char* which = text_parm(call, 0);
    const bool all = std::strcmp(which, kAll) == 0;
    InterfaceNames names;
    if (CliGetIfNames(names) == 0) return;
    if (!all && !known_interface(names, which)) return;

    StatisticsTable current, offsets;
    if (!read_both(current, offsets)) return;

    for (StatisticsRow& offset : offsets.rows()) {
        if (!all && std::strcmp(offset.name, which) != 0) continue;
        for (const StatisticsRow& now : current.rows())
            if (same_name(now, offset)) offset = now;
    }
    if (!write_offset_file(offsets)) return;
    call.parms.count = 0;
    CliShowIfStats(call, term);
}
