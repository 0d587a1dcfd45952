// The DHCP server's settings and reserved addresses as dnsmasq reads them. The service does not run a server: it keeps
// the text in dnsmasq.conf of the runtime folder (mode 0600, replaced whole at its start and at every change), which
// the device's own DHCP server takes with "--conf-file" and is started again for when it changes. While the server is
// off the file has no range. A device without such a server stores and shows the settings.
#pragma once

#include <string>

#include "configd/service.h"

std::string dhcp_rules(const Service& service);

// Writes the file for what is running. 0 or an errno value.
int apply_dhcp(const Service& service);
