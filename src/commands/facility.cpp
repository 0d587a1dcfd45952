#include "commands/facility.h"

#include <cstdio>

#include "console/messages.h"
#include "platform/log_messages.h"
#include "values/log_facility.h"

namespace {
constexpr std::uint32_t kTableEnd = 0xffffffff;
constexpr int kColumns = 6;

void list_facilities()
{
    int column = 0;
    for (const FacilityName* each = facilitynames; each->value != kTableEnd; ++each)
        std::printf(" %-11s%s", each->name, ++column % kColumns == 0 ? "\n" : "");
    if (column % kColumns != 0) std::printf("\n");
}
}  // namespace

std::uint32_t facility_parm(int term, const char* name)
{
    const std::uint32_t bit = logNameToFacility(name);
    if (bit != 0) return bit;
    PrintMsg(term, kUnknownFacility);
    list_facilities();
    return 0;
}

const char* facility_name(std::uint32_t bit)
{
    for (const FacilityName* each = facilitynames; each->value != kTableEnd; ++each)
        if (logNameToFacility(each->name) == bit) return each->name;
    return "";
}
