// Dynamic DNS: the name that follows the device's WAN address, and the account that may change it (code 390), written
// with 391. The password goes to the service and never comes back.
#pragma once

#include "service/record.h"

namespace ddns_record {
inline constexpr Field<std::uint8_t> enabled{12};
inline constexpr TextField hostname{16, 51};  // texts: empty: not set
inline constexpr TextField username{67, 61};
inline constexpr TextField password{128, 61};           // 391 only; empty: it stays as it is
inline constexpr Field<std::uint8_t> passwordSet{189};  // 390: 1 when there is one
}  // namespace ddns_record
