// The MAC filter: its list and mode (code 330), entries added with 331 and deleted with 332, the mode written with 333.
#pragma once

#include "service/record.h"

namespace mac_filter_record {
inline constexpr TextField name{12, 31};         // 331, 332
inline constexpr MacField mac{43};               // 331
inline constexpr Field<std::uint16_t> mode{52};  // 330 answer, 333 request: Mode

enum Mode : std::uint16_t { kDisabled = 0, kGrant = 1, kDeny = 2 };
}  // namespace mac_filter_record

// A name and an address: the entries of the MAC filter list and of the WDS peer list.
namespace named_mac_entry {
using At = Within<37>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 31};
inline constexpr At::MacField mac{31};
}  // namespace named_mac_entry
