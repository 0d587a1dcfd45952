// Log facilities by name and by the bit that the service knows them by.
#pragma once

#include <cstdint>

// The bit of a facility; 0 after saying that there is none of that name and which there are.
std::uint32_t facility_parm(int term, const char* name);

// "" for a bit that is no facility's.
const char* facility_name(std::uint32_t bit);
