#include "configd/ports.h"

#include <cstring>

#include "configd/log.h"

Ports::Ports(const Service& service, Counters counters) : profile_(service.profile)
{
    const int error =
        counters == Counters::now ? service.device.read_interfaces(interfaces_) : service.interfaces.read(interfaces_);
    if (error != 0) log_line(LOG_WARNING, "the machine's interfaces: %s", std::strerror(error));
}

const device::Interface* Ports::find(const std::string& interface) const
{
    return device::find_interface(interfaces_, interface.c_str());
}

const device::Interface* Ports::of(PortRole role) const
{
    const ProfilePort* port = port_of_role(profile_, role);
    return port ? find(port->interface) : nullptr;
}

const device::Interface* Ports::lan() const
{
    return profile_.bridge.empty() ? of(PortRole::kLan) : find(profile_.bridge);
}

device::Mac Ports::mac(PortRole role) const
{
    const ProfilePort* port = port_of_role(profile_, role);
    if (!port) return {};
    const device::Interface* real = find(port->interface);
    return real ? real->mac : port->mac;
}

device::Mac Ports::mac(const ProfileRadio& radio) const
{
    const device::Interface* real = find(radio.interface);
    return real ? real->mac : radio.mac;
}

bool Ports::is_linked(PortRole role) const
{
    const device::Interface* real = of(role);
    return real && real->running;
}
