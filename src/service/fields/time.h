// The clock, its zone and the NTP client (code 600); written with 1101 (date, time, zone) or 1100 (NTP client).
#pragma once

#include "service/record.h"

namespace time_record {
inline constexpr Field<std::uint32_t> now{12};  // seconds since the epoch
inline constexpr Field<std::int16_t> zone{16};  // index into the zone table; kZoneNotSet
inline constexpr Field<std::uint8_t> ntpEnabled{18};
inline constexpr Field<std::uint8_t> serverByAddress{19};  // 1: by serverAddress, 0: by serverName
inline constexpr TextField serverName{20, 51};             // empty: not set
inline constexpr Field<std::uint32_t> serverAddress{72};   // host order; 0: not set
inline constexpr Field<std::uint32_t> interval{76};        // hours between two requests

inline constexpr std::int16_t kZoneNotSet = -1;
}  // namespace time_record
