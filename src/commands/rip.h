// RIP per interface. No row of the dispatch table names these yet; a row makes its line available.
#pragma once

#include <cstdint>

#include "console/session.h"

void CliShowRIP(ActionBlock& call, int term);  // of the named interface, or of all without a parameter

void CliEnableRip1Active(ActionBlock& call, int term);  // without a parameter: on every interface
void CliEnableRip1Passive(ActionBlock& call, int term);
void CliEnableRip2Active(ActionBlock& call, int term);
void CliEnableRip2Passive(ActionBlock& call, int term);
void CliDisableRip(ActionBlock& call, int term);  // of the named interface
