// The machine's interfaces as they were at the last change, so that a request that shows an address or a link needs no
// dump of the kernel's tables. Counters in it are old: who shows those reads the device.
#pragma once

#include "configd/linux/device.h"

class InterfaceCache {
public:
    explicit InterfaceCache(const Device& device) : device_(device) {}

    // From now on what was read is kept until forget. Before this every call reads the device.
    void keep() { keeps_ = true; }
    // The kernel has told of a change, or the service itself has made one.
    void forget() { isCurrent_ = false; }

    // 0 or an errno value, and then `table` is empty.
    int read(std::vector<device::Interface>& table);

private:
    const Device& device_;
    bool keeps_ = false, isCurrent_ = false;
    std::vector<device::Interface> kept_{};
};
