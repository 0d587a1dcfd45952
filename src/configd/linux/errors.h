// What a refusal of the system means to the console.
#pragma once

#include "service/status.h"

namespace device {
// The status for an errno value of this folder's functions; 0 is kStatusOk.
ServiceStatus status_of(int error);
}  // namespace device
