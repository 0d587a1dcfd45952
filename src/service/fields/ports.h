// Ports: counters of an interface (code 4000, cleared with 4002), the link of the LAN port (4001), the wireless clients
// (230, cleared with 1230).
#pragma once

#include "service/record.h"

namespace port_statistics_record {
inline constexpr TextField interface {
    12, 16
};  // the key of the request

// Counters of an Ethernet interface.
inline constexpr Field<std::uint32_t> goodTransmitted{28};
inline constexpr Field<std::uint32_t> goodReceived{32};
inline constexpr Field<std::uint32_t> badTransmitted{36};
inline constexpr Field<std::uint32_t> badReceived{40};
inline constexpr Field<std::uint32_t> transmitAborts{44};
inline constexpr Field<std::uint32_t> collisions{48};
inline constexpr Field<std::uint32_t> droppedTransmitted{52};
inline constexpr Field<std::uint32_t> droppedReceived{56};

// A wireless interface has these in the same places.
inline constexpr Field<std::uint32_t> wirelessReceived{36};
inline constexpr Field<std::uint32_t> wirelessTransmitted{40};
inline constexpr Field<std::uint32_t> wirelessReceiveErrors{44};
inline constexpr Field<std::uint32_t> wirelessTransmitErrors{48};
}  // namespace port_statistics_record

namespace link_record {
inline constexpr Field<std::uint8_t> up{28};
inline constexpr Field<std::uint8_t> speed{29};   // kHundred; any other: 10 Mbit/s
inline constexpr Field<std::uint8_t> duplex{30};  // kFull; any other: half
inline constexpr Field<std::uint8_t> flowControl{31};
inline constexpr TextField interface {
    33, 16
};  // the key of the request

inline constexpr std::uint8_t kHundred = 1, kFull = 1;
}  // namespace link_record

namespace wireless_client_entry {
using At = Within<60>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::MacField mac{31};
inline constexpr At::Field<std::uint8_t> state{37};  // 1 to 5: Authenticated, Associated, Authorized, Deny by ACL,
                                                     // Unauthorized
inline constexpr At::Field<std::uint32_t> transmittedFrames{44};
inline constexpr At::Field<std::uint32_t> receivedFrames{48};
inline constexpr At::Field<std::uint32_t> transmittedBytes{52};
inline constexpr At::Field<std::uint32_t> receivedBytes{56};
}  // namespace wireless_client_entry
