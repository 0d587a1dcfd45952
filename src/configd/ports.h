// The profile's ports beside what this machine really has of them, read once for one answer.
#pragma once

#include "configd/service.h"

class Ports {
public:
    enum class Counters { old, now };
    explicit Ports(const Service& service, Counters counters = Counters::old);

    // nullptr: the machine has no such interface.
    const device::Interface* find(const std::string& interface) const;
    const device::Interface* of(PortRole role) const;
    // The interface that carries the LAN's address: the bridge where the profile has one.
    const device::Interface* lan() const;

    // The machine's own where it has the interface, else the profile's; zeros when neither knows it.
    device::Mac mac(PortRole role) const;
    device::Mac mac(const ProfileRadio& radio) const;
    bool is_linked(PortRole role) const;

    const std::vector<device::Interface>& interfaces() const { return interfaces_; }

private:
    const Profile& profile_;
    std::vector<device::Interface> interfaces_;
};
