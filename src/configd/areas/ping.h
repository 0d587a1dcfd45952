// Which interfaces the internet may ping, as the interface table shows it.
#pragma once

#include "configd/service.h"
#include "configd/settings.h"

// Sets the flag of each entry of an interface table (96-byte entries) that may be pinged.
void mark_ping_allowance(const Service& service, Bytes& table);
