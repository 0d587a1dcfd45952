// What the device has logged lately, newest last.
#include "service/fields/log_table.h"

#include <cstdio>
#include <cstring>
#include <ctime>

#include "commands/command.h"
#include "commands/facility.h"

namespace {
void print_entry(unsigned char* entry)
{
    const std::time_t time = log_entry::time.get(entry);
    std::tm local{};
    localtime_r(&time, &local);
    char stamp[sizeof "12-31-99 23:59:59"] = "";
    std::strftime(stamp, sizeof stamp, "%m-%d-%y %H:%M:%S", &local);
    std::printf("%-17s %-9s %-5d %s\n", stamp, facility_name(log_entry::facility.get(entry)),
                log_entry::level.get(entry), log_entry::text.get(entry));
}

// facility 0: of all.
void show_table(std::uint32_t facility)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    log_table_request::facility.set(usrComParam, facility);
    const Exchange log(code::kReadLogTable);
    if (!log.ok()) {
        CliPrintServiceError(log.outcome().reason(), kLogGroup);
        return;
    }
    std::printf("Time              Facility  Level Message\n"
                "------------------------------------------------------------------------------\n");
    for (unsigned char* entry : log.table(log_entry::kSize)) print_entry(entry);
}
}  // namespace

void CliShowLogTbl(ActionBlock&, int) { show_table(0); }

void CliShowLogTblFac(ActionBlock& call, int term)
{
    if (const std::uint32_t facility = facility_parm(term, text_parm(call, 0))) show_table(facility);
}
