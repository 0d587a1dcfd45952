// The DHCP server: its settings (code 1320, written with 323), the table of reserved addresses (320, entries added with
// 321 and deleted with 322) and the lease table (220).
#pragma once

#include "service/record.h"

namespace dhcp_record {
inline constexpr Field<std::uint32_t> netmask{68};  // addresses: host order
inline constexpr Field<std::uint8_t> state{72};     // kEnabled; anything else: disabled
inline constexpr Field<std::uint32_t> upperAddress{76};
inline constexpr Field<std::uint32_t> lowerAddress{80};
inline constexpr Field<std::uint32_t> leaseTime{84};   // minutes
inline constexpr Field<std::uint32_t> primaryDns{88};  // 0: none
inline constexpr Field<std::uint32_t> secondaryDns{92};
inline constexpr Field<std::uint32_t> gateway{104};

inline constexpr std::uint8_t kDisabled = 0, kEnabled = 1;
}  // namespace dhcp_record

namespace dhcp_static_request {
inline constexpr Field<std::uint32_t> address{12};
inline constexpr MacField mac{16};  // 321 only
}  // namespace dhcp_static_request

namespace dhcp_table_record {
inline constexpr Field<std::uint16_t> count{64};  // entries of the attached table; 220 and 320
}

namespace dhcp_entry {
using At = Within<52>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::Field<std::uint32_t> address{0};
inline constexpr At::MacField mac{4};
inline constexpr At::TextField hostName{12, 31};       // lease table
inline constexpr At::Field<std::uint8_t> flags{43};    // lease table: kStatic
inline constexpr At::Field<std::uint32_t> expiry{48};  // lease table: seconds since the epoch

inline constexpr std::uint8_t kStatic = 1;
}  // namespace dhcp_entry
