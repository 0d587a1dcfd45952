// The zone of a time record as the console shows it.
#pragma once

#include "service/record.h"

const char* zone_name(const ComParam& time);  // display name; an index that is not set shows as GMT
