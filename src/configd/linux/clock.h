// The machine's clock.
#pragma once

#include <cstdint>

namespace device {
std::int64_t read_clock();  // seconds since the epoch

// 0 or an errno value (EPERM: the service may not).
int set_clock(std::int64_t seconds);

std::uint32_t read_up_time();  // seconds since the machine started, sleep included
}  // namespace device
