// One of the two RADIUS servers (code 370, asked for by name), written with 371; 372 writes the re-attempt interval,
// 373 applies what was written, 375 deletes the entry.
#pragma once

#include "service/record.h"

namespace radius_record {
inline constexpr Field<std::uint8_t> enabled{12};
inline constexpr TextField name{13, 31};              // "primary" or "secondary"; the key of every request
inline constexpr Field<std::uint8_t> macControl{44};  // 1: MAC addresses are checked too
inline constexpr Field<std::uint8_t> retries{46};     // 1 to 5
inline constexpr TextField secret{47, 64};
inline constexpr Field<std::uint16_t> port{112};
inline constexpr Field<std::uint32_t> address{116};    // host order; 0: not set
inline constexpr Field<std::uint16_t> reattempt{126};  // minutes, 5 to 60
}  // namespace radius_record
