// Requests that add or delete an entry of a table carry it whole, at the front of their payload.
#pragma once

#include "service/record.h"

inline unsigned char* carried_entry(ComParam& request) { return request.bytes + record::kPayload; }
inline const unsigned char* carried_entry(const ComParam& request) { return request.bytes + record::kPayload; }
