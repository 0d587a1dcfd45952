// RIP per interface (code 1386: 20-byte entries), written with 1387.
#pragma once

#include "service/record.h"

namespace rip_record {
inline constexpr TextField interface {
    16, 16
};                                               // 1386: empty for all
inline constexpr Field<std::uint32_t> mode{32};  // 1387: Mode

enum Mode : std::uint32_t { kActive1 = 1, kPassive1 = 2, kActive2 = 4, kPassive2 = 8, kDisabled = 16 };
}  // namespace rip_record

namespace rip_entry {
using At = Within<20>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField interface {
    0, 16
};
inline constexpr At::Field<std::uint32_t> mode{16};
}  // namespace rip_entry
