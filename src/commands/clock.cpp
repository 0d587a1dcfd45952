// The device's clock and zone: shown, set by date, time and zone. No typed line reaches these five yet; a row of the
// command table with their identifiers makes them available.
#include <array>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "commands/command.h"
#include "commands/time_zone.h"
#include "console/messages.h"
#include "service/fields/time.h"
#include "service/time_zones.h"

namespace {
constexpr int kPivotYear = 70;         // two-digit years below it are 20xx
constexpr std::size_t kShownName = 9;  // characters of a display name that are compared

std::tm local_time(const ComParam& time)
{
    const std::time_t now = time_record::now.get(time);
    return *std::localtime(&now);
}

// Byte `index` of a packed-BCD word, as a number.
int bcd_field(Word word, std::size_t index)
{
    unsigned char byte;
    std::memcpy(&byte, reinterpret_cast<const unsigned char*>(&word) + index, 1);
    return (byte >> 4) * 10 + (byte & 0x0f);
}

bool read_time()
{
    const Outcome read = read_record(code::kReadTime);
    if (!read.ok()) CliPrintServiceError(read.reason(), kSystemGroup);
    return read.ok();
}

bool write_time()
{
    const Outcome written = write_record(code::kWriteTime);
    if (!written.ok()) CliPrintServiceError(written.reason(), kSystemGroup);
    return written.ok();
}

// A moment that the record cannot hold (before 1970 in a zone east of it, beyond what the C library counts) is refused.
bool write_local_time(std::tm local, int term, Message refusal)
{
    const std::int64_t seconds = std::mktime(&local);
    if (seconds < 0 || seconds > UINT32_MAX) {
        PrintMsg(term, refusal);
        return false;
    }
    time_record::now.set(usrComParam, static_cast<std::uint32_t>(seconds));
    return write_time();
}
}  // namespace

const char* zone_name(const ComParam& time)
{
    const int index = time_record::zone.get(time);
    return tzFileName[index >= 0 && index < static_cast<int>(tzFileName.size()) ? static_cast<unsigned>(index)
                                                                                : kZoneGmt]
        .display;
}

void CliShowDate(ActionBlock&, int)
{
    if (!read_time()) return;
    const std::tm local = local_time(usrComParam);
    std::printf("        Date: %d-%d-%d\n", local.tm_mon + 1, local.tm_mday, local.tm_year + 1900);
}

void CliShowTime(ActionBlock&, int)
{
    if (!read_time()) return;
    const std::tm local = local_time(usrComParam);
    std::printf("Time (%s): %s\n", zone_name(usrComParam), std::asctime(&local));
}

void CliSetDate(ActionBlock& call, int term)
{
    if (!read_time()) return;
    const Word date = call.parms.value[0];
    const int year = bcd_field(date, 2);
    std::tm local = local_time(usrComParam);
    local.tm_mon = bcd_field(date, 0) - 1;
    local.tm_mday = bcd_field(date, 1);
    local.tm_year = year < kPivotYear ? year + 100 : year;
    local.tm_isdst = -1;  // the other date may lie on the other side of a change of the clock
    if (write_local_time(local, term, kInvalidDate)) CliShowDate(call, term);
}

void CliSetTime(ActionBlock& call, int term)
{
    if (!read_time()) return;
    const Word time = call.parms.value[0];
    std::tm local = local_time(usrComParam);
    local.tm_hour = bcd_field(time, 0);
    local.tm_min = bcd_field(time, 1);
    local.tm_sec = bcd_field(time, 2);
    if (write_local_time(local, term, kInvalidTime)) CliShowTime(call, term);
}

// The text that is looked for has no colon and the display names have one, so no zone is ever found and the record goes
// back as it was. The zone is changed through "set ntp client".
void CliSetTimezone(ActionBlock& call, int term)
{
    if (!read_time()) return;
    const std::int64_t minutes = static_cast<std::int32_t>(call.parms.value[0]);
    const auto distance = static_cast<unsigned>(minutes < 0 ? -minutes : minutes);
    char wanted[32];
    std::snprintf(wanted, sizeof wanted, "%c%02u%02u", minutes <= 0 ? '-' : '+', distance / 60, distance % 60);

    for (std::size_t i = 0; i < tzFileName.size(); ++i) {
        char name[kShownName + 1];
        std::snprintf(name, sizeof name, "%s", tzFileName[i].display);
        if (std::strstr(name, wanted)) time_record::zone.set(usrComParam, static_cast<std::int16_t>(i));
    }
    if (write_time()) CliShowTime(call, term);
}
