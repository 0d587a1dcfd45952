// The port statistics that other commands call.
#pragma once

#include "console/session.h"

void CliShowPortStatsGen(const char* interface);
void CliShowPortStatsLan(ActionBlock& call, int term);  // no row refers to it
void CliClearPortStatsLan();
