// The log table (code 1205): the latest entries, newest last.
#pragma once

#include "service/record.h"

namespace log_table_request {
inline constexpr Field<std::uint32_t> facility{12};  // one, as logNameToFacility gives it; 0: all
}

namespace log_entry {
using At = Within<128>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::Field<std::uint32_t> time{0};  // seconds since the epoch
inline constexpr At::Field<std::uint32_t> facility{4};
inline constexpr At::Field<std::uint8_t> level{8};  // 1 to 7, as system_log_record::level
inline constexpr At::TextField text{9, 119};
}  // namespace log_entry
