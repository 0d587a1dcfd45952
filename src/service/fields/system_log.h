// Log, trace and remote syslog settings (code 1311).
#pragma once

#include "service/record.h"

namespace system_log_record
{
inline constexpr Field<std::uint8_t> level{48};  // 1 to 7
}  // namespace system_log_record
