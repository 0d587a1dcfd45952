// The UPnP record (code 1313), written with 1312.
#pragma once

#include "service/record.h"

namespace upnp_record {
inline constexpr Field<std::uint8_t> enabled{60};  // 1: enabled
}  // namespace upnp_record
