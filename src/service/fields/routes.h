// The IP routing table (code 1385: 40-byte entries) and the request that adds (1381) or deletes (1382) a route.
#pragma once

#include "service/record.h"

namespace route_request {
inline constexpr TextField interface {
    13, 19
};  // longer than any name, so that a name that is too long is not cut to another's
inline constexpr Field<std::uint32_t> destination{32};  // addresses: host order; 0/0 is the default route
inline constexpr Field<std::uint32_t> netmask{36};
inline constexpr Field<std::uint32_t> gateway{40};
inline constexpr Field<std::uint32_t> hops{44};
}  // namespace route_request

namespace route_entry {
using At = Within<40>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField interface {
    1, 16
};
inline constexpr At::Field<std::uint32_t> destination{20};
inline constexpr At::Field<std::uint32_t> netmask{24};
inline constexpr At::Field<std::uint32_t> gateway{28};
inline constexpr At::Field<std::uint32_t> hops{32};
inline constexpr At::Field<std::uint32_t> flags{36};  // RTF_ bits of <linux/route.h>
}  // namespace route_entry
