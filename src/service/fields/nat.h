// Network address translation: which interfaces do it (code 813, switched with 1400), the DMZ hosts (450, 451, 452),
// the redirections to a local server (410, 411, 412) and the ports that local traffic opens (430, 431, 432). A request
// that adds or deletes an entry carries it (carried_entry.h); deleting, only what names it matters.
#pragma once

#include "service/fields/carried_entry.h"

namespace nat_record {
inline constexpr TextField interface {
    12, 16
};                                                     // 813: empty for all; 1400
inline constexpr Field<std::uint32_t> enabled{28};     // 1400
inline constexpr TextField lanInterface{32, 16};       // 813's answer, as are these
inline constexpr Field<std::uint32_t> lanAddress{48};  // host order
inline constexpr Field<std::uint32_t> lanNetmask{52};
}  // namespace nat_record

// 813's table: the interfaces that can translate.
namespace nat_entry {
using At = Within<24>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField interface {
    0, 16
};
inline constexpr At::Field<std::uint32_t> enabled{16};
inline constexpr At::Field<std::uint32_t> address{20};  // of the interface, host order; 0: none
}  // namespace nat_entry

// A name of kDefault stands for the host that gets what nothing else takes; there is one for each interface. Any other
// entry gives a host an address of its own outside.
namespace dmz_entry {
using At = Within<56>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 31};
inline constexpr At::TextField interface {
    31, 16
};
inline constexpr At::Field<std::uint32_t> natAddress{48};  // host order; 0 in a default entry
inline constexpr At::Field<std::uint32_t> dmzAddress{52};

inline constexpr char kDefault[] = "DMZ(DEFAULT)";
}  // namespace dmz_entry

enum NatProtocol : std::uint8_t { kNatTcp = 1, kNatUdp = 2, kNatBoth = 3 };

// Ports first to last; a single port is both. The local ports are as many as the public ones, or a single one.
namespace nat_server_entry {
using At = Within<60>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 31};
inline constexpr At::TextField interface {
    31, 16
};
inline constexpr At::Field<std::uint8_t> protocol{47};  // NatProtocol
inline constexpr At::Field<std::uint16_t> publicFirst{48};
inline constexpr At::Field<std::uint16_t> publicLast{50};
inline constexpr At::Field<std::uint16_t> localFirst{52};
inline constexpr At::Field<std::uint16_t> localLast{54};
inline constexpr At::Field<std::uint32_t> server{56};  // host order

inline constexpr unsigned kMostMoved = 1024;  // ports of a range whose local numbers differ
}  // namespace nat_server_entry

// Traffic from a local host to `port` opens the ranges towards that host.
namespace nat_trigger_entry {
using At = Within<48>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 31};
inline constexpr At::Field<std::uint8_t> protocol{31};  // NatProtocol
inline constexpr At::Field<std::uint16_t> port{32};
inline constexpr At::Field<std::uint8_t> openedProtocol{34};  // NatProtocol

struct Range {
    At::Field<std::uint16_t> first, last;  // 0 and 0: not used
};
inline constexpr Range kOpened[] = {
    {At::Field<std::uint16_t>(36), At::Field<std::uint16_t>(38)},
    {At::Field<std::uint16_t>(40), At::Field<std::uint16_t>(42)},
    {At::Field<std::uint16_t>(44), At::Field<std::uint16_t>(46)},
};
inline constexpr std::size_t kMostRanges = 3;
}  // namespace nat_trigger_entry
