// The lists of network address translation, for what puts them in force.
#pragma once

#include "configd/settings.h"

// An interface that translates; the entry is its name.
namespace nat_interface {
using At = Within<16>;
inline constexpr At::TextField name{0, 16};
}  // namespace nat_interface

extern const List& kNatInterfaces;
extern const List& kNatDefaultHosts;  // dmz_entry without a name, one for each interface
extern const List& kNatHosts;         // dmz_entry
extern const List& kNatServers;       // nat_server_entry
extern const List& kNatTriggers;      // nat_trigger_entry
