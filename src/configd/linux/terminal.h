// The terminal that a process runs on.
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

namespace device {
// "pts/3", "ttyS0", "tty1"; a device without such a name by its numbers: "terminal 204:64". Empty: none, or the process
// is gone.
std::string terminal_of(pid_t process);

// The same, from the process's line in /proc. The name that the line has in it is the process's own choice.
std::string terminal_in(std::string_view stat);
}  // namespace device
