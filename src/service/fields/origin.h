// What a record of settings came from. Whoever changes settings reads their record, changes some of its fields and
// sends the whole of it back; by these two the service knows then which fields were changed, and leaves the others as
// they are by now. They are the service's own: the console carries them along and never looks at them.
#pragma once

#include "service/record.h"

namespace origin_record {
inline constexpr Field<std::uint32_t> revision{3588};  // of the running configuration, when the record was read
inline constexpr Field<std::uint16_t> section{3592};   // which settings it shows; 0: it came from no such read
inline constexpr Extent place{3588, 6};
static_assert(place.end() <= record::kPayloadEnd);
}  // namespace origin_record
