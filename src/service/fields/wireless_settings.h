// The radio's settings as the wireless dialogue edits them (code 1140, written with 1141).
#pragma once

#include "service/record.h"

namespace wireless_record {
inline constexpr TextField networkName{43, 38};
inline constexpr Field<std::uint8_t> keyIndex{81};  // 0: WEP off; 1 to 4: this key is active
inline constexpr Field<std::uint8_t> keyType[4]{Field<std::uint8_t>{82}, Field<std::uint8_t>{100},
                                                Field<std::uint8_t>{118}, Field<std::uint8_t>{136}};  // KeyType
// As typed, or the raw bytes of a generated key, zeros among them.
inline constexpr TextField key[4]{TextField{83, 17}, TextField{101, 17}, TextField{119, 17}, TextField{137, 17}};
inline constexpr Field<std::uint8_t> keyLength{219};  // KeyLength
inline constexpr TextField passphrase{220, 45};
inline constexpr Field<std::uint8_t> hidden{265};   // 1: the SSID is not broadcast
inline constexpr Field<std::uint16_t> domain{268};  // Domain
inline constexpr Field<std::uint16_t> channel{270};
inline constexpr Field<std::uint32_t> beaconInterval{272};  // milliseconds
inline constexpr Field<std::uint32_t> rtsThreshold{276};    // bytes
inline constexpr Field<std::uint32_t> fragmentThreshold{280};
inline constexpr Field<std::uint32_t> dtimInterval{284};  // beacons

enum KeyType : std::uint8_t { kAscii64 = 1, kHex64 = 2, kAscii128 = 3, kHex128 = 4, kTyped152 = 5 };
enum KeyLength : std::uint8_t { k64Bit = 1, k128Bit = 3, k152Bit = 5 };
enum Domain : std::uint16_t { kFcc = 0x10, kEtsi = 0x30, kSpain = 0x31, kFrance = 0x32, kJapan = 0x42 };
}  // namespace wireless_record
