// Log facilities by name.
#pragma once

#include <cstdint>

// The facility's bit with the top bit set, or 0 for a name that the log message library does not know.
std::uint32_t logNameToFacility(const char* name);
