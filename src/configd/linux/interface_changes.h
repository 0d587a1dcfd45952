// Tells when something happened to the interfaces: one came, went, was switched on or off, got or lost an address.
#pragma once

namespace device {
// A descriptor of the caller's that is readable after a change; -1 and errno: the system does not tell.
int watch_interfaces();

// What it has told so far is done with.
void drain_changes(int descriptor);
}  // namespace device
