// The clients of a radio, asked of hostapd over its control socket.
#pragma once

#include <cstdint>
#include <vector>

#include "configd/linux/interfaces.h"

namespace device {
struct Station {
    Mac mac;
    // The numbers are those of the wireless client table.
    enum class State : std::uint8_t { kAuthenticated = 1, kAssociated, kAuthorized, kDenied, kUnauthorized } state;
    std::uint32_t txFrames, rxFrames, txBytes, rxBytes;  // sent to it, received from it
};

inline constexpr std::size_t kMaxStations = 256;

// 0 or an errno value; on failure the table is empty. Waits no longer than two seconds in all.
int read_stations(const char* controlSocket, std::vector<Station>& stations);
}  // namespace device
