// The interface table: 96-byte entries behind the answers to 810 and 811.
#pragma once

#include "service/record.h"

namespace interface_record {
inline constexpr Field<std::uint16_t> count{108};  // 811: entries of the attached table
}  // namespace interface_record

namespace interface_entry {
using At = Within<96>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::Field<std::uint8_t> type{0};  // Type
inline constexpr At::Field<std::uint32_t> flags{4};
inline constexpr At::Field<std::uint32_t> state{8};  // kUp, any other: down
inline constexpr At::TextField name{21, 16};
inline constexpr At::Field<std::uint32_t> mtu{40};
inline constexpr At::Field<std::uint32_t> address{44};  // host order; 0: none
inline constexpr At::Field<std::uint32_t> netmask{48};
inline constexpr At::TextField port{72, 16};
inline constexpr At::MacField mac{88};

enum Type : std::uint8_t { kEthernet = 1, kWireless, kBridge, kPppoe, kPptp, kVlan, kBonding };
inline constexpr std::uint32_t kPingAllowed = 0x10, kSystemLan = 0x80, kWan = 0x100;
inline constexpr std::uint32_t kUp = 1;
}  // namespace interface_entry
