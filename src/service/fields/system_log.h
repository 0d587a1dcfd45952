// The system log: its level, the remote server and what each facility logs and traces (code 1311). Written with 1204
// (level), 1310 (remote server), 1202 and 1203 (the log and the trace of one facility); 1206 has the facilities as a
// table.
#pragma once

#include "service/record.h"

// What a facility logs or traces: nothing, up to a level of its own (1 to 7), or kFacilityOn: its log goes up to the
// system log level, its trace has everything.
inline constexpr std::uint8_t kFacilityOff = 0, kFacilityOn = 8;

namespace system_log_record {
inline constexpr Field<std::uint8_t> level{48};           // 1 to 7, as syslog counts them: 1 alert, 7 debug
inline constexpr Field<std::uint8_t> remoteEnabled{49};   // 1: entries go to the remote server too
inline constexpr Field<std::uint32_t> remoteAddress{52};  // host order; 0: not set
}  // namespace system_log_record

namespace facility_request {
inline constexpr Field<std::uint32_t> facility{12};  // one, as logNameToFacility gives it
inline constexpr Field<std::uint8_t> state{16};      // 1202, 1203
}  // namespace facility_request

namespace facility_entry {
using At = Within<8>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::Field<std::uint32_t> facility{0};
inline constexpr At::Field<std::uint8_t> log{4};
inline constexpr At::Field<std::uint8_t> trace{5};
}  // namespace facility_entry
