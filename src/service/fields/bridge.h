// The bridge that joins the LAN ports: its spanning tree, its ports and the addresses that it has learned (code 240).
// 241 switches the spanning tree.
#pragma once

#include "service/record.h"

namespace bridge_record {
inline constexpr TextField name{12, 16};
inline constexpr Field<std::uint8_t> stp{28};  // 1: enabled
inline constexpr TextField id{32, 20};         // "8000.02005e100001"
inline constexpr TextField root{52, 20};       // the id of the tree's root
inline constexpr Field<std::uint32_t> rootCost{72};
inline constexpr Field<std::uint16_t> ports{76};  // of them, at kFirstPort
inline constexpr std::size_t kFirstPort = 80, kMostPorts = 32;
}  // namespace bridge_record

namespace bridge_port {
using At = Within<32>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::TextField name{0, 16};
inline constexpr At::Field<std::uint16_t> number{16};
inline constexpr At::Field<std::uint8_t> state{18};  // State
inline constexpr At::Field<std::uint32_t> cost{20};
inline constexpr At::Field<std::uint32_t> priority{24};

enum State : std::uint8_t { kDisabled = 0, kListening, kLearning, kForwarding, kBlocking };

static_assert(bridge_record::kFirstPort + bridge_record::kMostPorts * kSize <= record::kPayloadEnd);
}  // namespace bridge_port

// The attached table.
namespace bridge_entry {
using At = Within<16>;
inline constexpr std::size_t kSize = At::room;
inline constexpr At::MacField mac{0};
inline constexpr At::Field<std::uint16_t> port{6};  // number
inline constexpr At::Field<std::uint8_t> own{8};    // 1: the port's own address
inline constexpr At::Field<std::uint32_t> age{12};  // hundredths of a second since it was last seen
}  // namespace bridge_entry
