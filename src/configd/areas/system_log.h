// The settings of the system log, as the log itself follows them.
#pragma once

#include "configd/service.h"
#include "configd/system_log.h"

LogRules log_rules(const Service& service);

// A facility as the console names it in records: the bit that logNameToFacility gives.
std::uint32_t facility_bit(Facility facility);
// false: not exactly one that this system knows.
bool facility_of_bit(std::uint32_t bit, Facility& facility);
