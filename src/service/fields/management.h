// Management access: who may come in over which port (code 310), written back with 311.
#pragma once

#include "service/record.h"

namespace management_record {
inline constexpr Field<std::uint8_t> remoteMode{29};  // RemoteMode
inline constexpr Field<std::uint32_t> remoteClient[2]{Field<std::uint32_t>{32},
                                                      Field<std::uint32_t>{36}};  // host order; 0: not set
inline constexpr Field<std::uint16_t> httpPort{94};
inline constexpr Field<std::uint16_t> httpTimeout{96};  // minutes
inline constexpr Field<std::uint16_t> telnetPort{100};
inline constexpr Field<std::uint32_t> sessionTimeout{104};  // minutes, of this console; shown as the telnet time-out

// Who may manage the device from the WAN side: everybody, the first client, both clients, nobody. The clients stay set
// while nobody may, so that enabling brings back the same ones.
enum RemoteMode : std::uint8_t { kRemoteAll = 1, kRemoteOne = 2, kRemoteTwo = 3, kRemoteDisabled = 4 };
}  // namespace management_record
