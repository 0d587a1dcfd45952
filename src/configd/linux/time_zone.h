// The machine's time zone: the file that the C library of every program reads local time by.
#pragma once

#include <cstdint>

namespace device {
// A zone that is always that many seconds east of UTC. A file that says so already is left alone. 0 or an errno value.
int set_time_zone(const char* path, std::int32_t secondsEast);
}  // namespace device
