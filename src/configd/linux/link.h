// The state of a port's link, asked of its driver. What the driver does not tell stays unknown.
#pragma once

#include <cstdint>

namespace device {
enum class Carrier : std::uint8_t { kUnknown, kDown, kUp };
enum class Duplex : std::uint8_t { kUnknown, kHalf, kFull };
enum class FlowControl : std::uint8_t { kUnknown, kOff, kOn };

struct Link {
    Carrier carrier = Carrier::kUnknown;
    std::uint32_t speed = 0;  // Mbit/s; 0: unknown
    Duplex duplex = Duplex::kUnknown;
    FlowControl flowControl = FlowControl::kUnknown;
};

// 0 or an errno value (ENODEV: no such interface); on failure everything in the link is unknown.
int read_link(const char* interface, Link& link);
}  // namespace device
