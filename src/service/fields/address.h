// An interface's IP settings (code 1805, asked for by the interface key), written with 1800.
#pragma once

#include "service/record.h"

namespace address_record {
inline constexpr Field<std::uint8_t> mode{12};  // Mode
inline constexpr TextField interface {
    24, 16
};                                                   // "lan" or "wan"; the key of the request
inline constexpr Field<std::uint32_t> address{148};  // host order
inline constexpr Field<std::uint32_t> netmask{152};
inline constexpr Field<std::uint32_t> gateway{156};
inline constexpr Field<std::uint32_t> primaryDns{160};

enum Mode : std::uint8_t { kAutomatic = 1, kStatic = 2 };
}  // namespace address_record
