// IP filters (code 420, added with 421 and deleted with 422) and what an interface does with the packets that none of
// its filters matches (423). A request that adds or deletes a filter carries its entry at the front of the payload;
// deleting, only the name matters.
#pragma once

#include "service/fields/carried_entry.h"

namespace ip_filter_record {
inline constexpr TextField interface {
    12, 16
};                                                 // 420: empty for all filters; 423
inline constexpr Field<std::uint32_t> action{28};  // 420's answer for one interface, 423: Action

// What the filters match gets the opposite of the default action.
enum Action : std::uint32_t { kDisable = 0, kGrant = 1, kDeny = 2 };
}  // namespace ip_filter_record

namespace ip_filter_entry {
using At = Within<76>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 31};
inline constexpr At::TextField interface {
    31, 16
};
inline constexpr At::Field<std::uint8_t> direction{47};       // Direction
inline constexpr At::Field<std::uint8_t> protocol{48};        // Protocol
inline constexpr At::Field<std::uint32_t> sourceAddress{52};  // addresses: host order; 0 and 0: any
inline constexpr At::Field<std::uint32_t> sourceNetmask{56};
inline constexpr At::Field<std::uint32_t> destinationAddress{60};
inline constexpr At::Field<std::uint32_t> destinationNetmask{64};
inline constexpr At::Field<std::uint16_t> sourceFirst{68};  // ports: 0 and 0: any; of TCP and UDP only
inline constexpr At::Field<std::uint16_t> sourceLast{70};
inline constexpr At::Field<std::uint16_t> destinationFirst{72};
inline constexpr At::Field<std::uint16_t> destinationLast{74};

enum Direction : std::uint8_t { kInbound = 1, kOutbound = 2 };
enum Protocol : std::uint8_t { kAny = 0, kTcp = 6, kUdp = 17, kIcmp = 1, kIgmp = 2 };  // IANA's numbers; 0: any
constexpr bool has_ports(std::uint8_t number) { return number == kTcp || number == kUdp; }
}  // namespace ip_filter_entry
