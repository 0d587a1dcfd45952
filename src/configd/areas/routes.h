// The static routes of the configuration, and their place in the kernel's table.
#pragma once

#include "configd/service.h"

// Gives the kernel the static routes that it does not hold: at the start, and when an interface has come back that the
// kernel had dropped routes with. One that it refuses is logged, and stays in the configuration for the next time.
void restore_routes(const Service& service);

// The configuration has become another one: what only `before` had leaves the kernel, what is running now goes in.
void replace_routes(const Service& service, const Configuration& before);
