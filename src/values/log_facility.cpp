#include "values/log_facility.h"

#include <cstring>

#include "platform/log_messages.h"

namespace {
constexpr std::uint32_t kFirst = 192, kLast = 384, kStep = 8, kTableEnd = 0xffffffff;
constexpr std::uint32_t kKnown = 0x80000000, kFirstBit = 8;

const char* name_of(std::uint32_t facility)
{
    const FacilityName* entry = facilitynames;
    while (entry->value != kTableEnd && entry->value != facility) ++entry;
    return entry->value == facility ? entry->name : "";
}
}  // namespace

std::uint32_t logNameToFacility(const char* name)
{
    std::uint32_t bits = 0;
    for (std::uint32_t facility = kFirst; facility <= kLast; facility += kStep)
        if (*name && std::strcmp(name, name_of(facility)) == 0)
            bits |= kKnown | kFirstBit << (facility - kFirst) / kStep;
    return bits;
}
