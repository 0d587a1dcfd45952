// The WDS peers (code 360: entries as named_mac_entry), added with 361 and deleted with 362.
#pragma once

#include "service/fields/mac_filter.h"

namespace wds_record {
inline constexpr Field<std::uint16_t> count{346};  // 360: entries of the attached table
inline constexpr TextField name{50, 31};           // 361, 362
inline constexpr MacField mac{81};                 // 361
}  // namespace wds_record
