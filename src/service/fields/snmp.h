// SNMP: communities, state and trap managers (code 340), written with 343. A trap manager is added with 341, deleted
// with 342, enabled or disabled with 344.
#pragma once

#include "service/record.h"

namespace snmp_record {
inline constexpr Field<std::uint8_t> enabled{12};
inline constexpr TextField readCommunity{55, 16};
inline constexpr TextField writeCommunity{71, 16};           // 343 only; empty: it stays as it is
inline constexpr Field<std::uint8_t> writeCommunitySet{87};  // 340: 1 when there is one
inline constexpr Field<std::uint16_t> trapManagers{88};      // 340: entries of the attached table
}  // namespace snmp_record

namespace trap_manager_request {
inline constexpr TextField name{12, 31};
inline constexpr Field<std::uint32_t> address{44};  // 341; host order
inline constexpr Field<std::uint8_t> enabled{48};   // 341, 344
}  // namespace trap_manager_request

namespace trap_manager_entry {
using At = Within<40>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 31};
inline constexpr At::Field<std::uint32_t> address{32};
inline constexpr At::Field<std::uint8_t> enabled{36};

inline constexpr std::size_t kCapacity = 8;  // entries of the table
}  // namespace trap_manager_entry
