// Restarting the machine.
#pragma once

namespace device {
// Writes out what is still in memory and restarts. Comes back only when refused: an errno value (EPERM).
int restart_machine();
}  // namespace device
