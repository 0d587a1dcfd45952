#include "configd/linux/clock.h"

#include <cerrno>
#include <ctime>

namespace device {
std::int64_t read_clock() { return std::time(nullptr); }

int set_clock(std::int64_t seconds)
{
    timespec wanted{};
    wanted.tv_sec = static_cast<std::time_t>(seconds);
    if (seconds < 0) return EINVAL;
    return clock_settime(CLOCK_REALTIME, &wanted) == 0 ? 0 : errno;
}

std::uint32_t read_up_time()
{
    timespec since{};
    clock_gettime(CLOCK_BOOTTIME, &since);
    return static_cast<std::uint32_t>(since.tv_sec);
}
}  // namespace device
