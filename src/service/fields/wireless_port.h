// One radio as a port (code 140), asked for by the radio's name.
#pragma once

#include "service/record.h"

namespace wireless_port_record {
inline constexpr TextField radio{3232, 16};  // "radio1" or "radio2"; the key of the request
inline constexpr TextField ssid{3263, 38};
inline constexpr Field<std::uint8_t> mode{3486};
inline constexpr Field<std::uint16_t> channel{3490};  // 0: automatic
}  // namespace wireless_port_record
