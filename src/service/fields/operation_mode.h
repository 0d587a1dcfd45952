// What the radio does: access point, bridge to WDS peers, or repeater of another access point (442, written with 443).
#pragma once

#include "service/record.h"

namespace operation_mode_record {
inline constexpr Field<std::uint8_t> mode{43};  // Mode
inline constexpr MacField repeated{44};         // the access point that a repeater repeats

enum Mode : std::uint8_t { kAccessPoint = 1, kWds = 2, kRepeater = 3 };
}  // namespace operation_mode_record
