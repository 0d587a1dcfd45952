// NAT and IP filters as rules for the kernel's packet filter. The service does not load them: it keeps the text in
// firewall.nft of the runtime folder (mode 0600, replaced whole at its start and at every change), and the device's own
// firewall service loads that file with "nft -f" when it changes. A device without such a service stores and shows the
// settings and filters nothing.
#pragma once

#include <string>

#include "configd/operations.h"

std::string firewall_rules(const Service& service);

// Writes the file for what is running. 0 or an errno value.
int apply_firewall(const Service& service);

// Carries out a change of what the rules are made from. When they cannot be written, nothing has changed.
template <ServiceStatus (*change)(Call&)> ServiceStatus in_force(Call& call)
{
    const Configuration before = call.service.store.running();
    if (const ServiceStatus refused = change(call)) return refused;
    const int error = apply_firewall(call.service);
    if (error != 0) call.service.store.change(before);
    return storage_status(error);
}
