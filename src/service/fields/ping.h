// Whether the internet may ping an interface (code 1810). There is one code for both ways: a request that asks for no
// change reads, any other change than those named here is refused.
#pragma once

#include "service/record.h"

namespace ping_record {
inline constexpr TextField interface {
    12, 16
};                                                 // the key of the request
inline constexpr Field<std::uint8_t> change{28};   // in a request: Change; 0 in an answer
inline constexpr Field<std::uint8_t> visible{29};  // in an answer: 1, the interface stands in the interface table
inline constexpr Field<std::uint8_t> allowed{30};  // in an answer: 1 when it may be pinged

enum Change : std::uint8_t { kRead = 0, kAllow = 1, kForbid = 2 };
}  // namespace ping_record
