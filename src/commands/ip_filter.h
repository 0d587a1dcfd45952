// What the IP filter commands and their dialogue share.
#pragma once

#include "service/client.h"
#include "values/selection.h"

extern const SelectEntry kFilterDirections[], kFilterProtocols[];

bool report_filter(const Outcome& outcome);  // whether all went well

// Prints the filters of one interface or of one name; "" does not narrow them.
void show_filters(const char* interface, const char* name);
