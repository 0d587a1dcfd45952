// The time zone and the NTP client as the machine has them.
#pragma once

#include <string>

#include "configd/service.h"

// Gives the machine the zone of the settings where the profile names the file for it. 0 or an errno value.
int apply_time_zone(const Service& service);

// The NTP client's settings as systemd-timesyncd reads them. The service asks no time server itself: it keeps the text
// in timesyncd.conf of the runtime folder (mode 0600, replaced whole at its start and at every change), which the
// device's own time service takes as its settings and is started again for when it changes. While the client is off the
// file names no server, and the time service is not to run. A device without one stores and shows the settings.
std::string ntp_rules(const Service& service);

// Writes the file for what is running. 0 or an errno value.
int apply_ntp(const Service& service);
