// Names with MAC addresses, as the MAC filter and the WDS peer lists show them.
#pragma once

#include "console/session.h"

inline constexpr int kNameColumn = 15;  // characters of a name that stand in its row

// The six bytes of a MAC address parameter, the last one that was typed.
const unsigned char* last_mac_parm(const ActionBlock& call);

// "%02X-..." into a buffer of its own, overwritten by the next call.
const char* upper_mac(const unsigned char* mac);

// `row` takes the name (as "%-15.15s") and the address. What does not fit the name's column stands on the next line.
void print_named_mac(const char* row, const char* name, const unsigned char* mac);
