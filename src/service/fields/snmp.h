// The SNMP record (code 340).
#pragma once

#include "service/record.h"

namespace snmp_record
{
inline constexpr TextField readCommunity{55, 16};
}  // namespace snmp_record
