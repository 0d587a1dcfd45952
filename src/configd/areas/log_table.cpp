// The log table: what the system log has kept.
#include "service/fields/log_table.h"

#include <algorithm>

#include "configd/areas/areas.h"
#include "configd/areas/system_log.h"
#include "service/codes.h"

namespace {
static_assert(log_entry::text.at.width == SystemLog::kLongestText + 1);

void append(std::vector<unsigned char>& table, const LogEntry& kept)
{
    unsigned char entry[log_entry::kSize] = {};
    log_entry::time.set(entry, static_cast<std::uint32_t>(std::clamp<std::int64_t>(kept.time, 0, UINT32_MAX)));
    log_entry::facility.set(entry, facility_bit(kept.facility));
    log_entry::level.set(entry, static_cast<std::uint8_t>(kept.level));
    log_entry::text.set(entry, kept.text.c_str());
    table.insert(table.end(), std::begin(entry), std::end(entry));
}

ServiceStatus read_table(Call& call)
{
    const std::uint32_t wanted = log_table_request::facility.get(call.request);
    Facility only{};
    if (wanted != 0 && !facility_of_bit(wanted, only)) return kStatusUnknownName;
    for (const LogEntry& entry : system_log().entries()) {
        if (wanted == 0 || entry.facility == only) append(call.answer.table, entry);
    }
    return kStatusOk;
}

constexpr Operation kOperations[] = {{.code = code::kReadLogTable, .run = read_table}};
}  // namespace

const Area kLogTableArea{.sections = {}, .lists = {}, .operations = kOperations};
