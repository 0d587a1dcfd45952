// Management access: who may come in over which port (code 310), written back with 311.
#pragma once

#include "service/record.h"

namespace management_record
{
inline constexpr Field<std::uint8_t> remoteMode{29};  // kRemoteDisabled: no management from the WAN side
inline constexpr Field<std::uint16_t> httpPort{94};
inline constexpr Field<std::uint16_t> httpTimeout{96};  // minutes
inline constexpr Field<std::uint16_t> telnetPort{100};
inline constexpr Field<std::uint32_t> sessionTimeout{104};  // minutes, of this console; shown as the telnet time-out

inline constexpr std::uint8_t kRemoteDisabled = 4;
}  // namespace management_record
