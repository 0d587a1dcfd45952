#include "configd/linux/restart.h"

#include <cerrno>
#include <sys/reboot.h>
#include <unistd.h>

namespace device {
int restart_machine()
{
    sync();
    reboot(RB_AUTOBOOT);
    return errno;
}
}  // namespace device
