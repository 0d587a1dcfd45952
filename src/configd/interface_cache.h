// The machine's interfaces as the kernel last told of them, so that a request that shows an address or a link costs one
// system call and no two dumps of the kernel's tables. Counters in it are old: who shows those reads the device.
#pragma once

#include "configd/linux/device.h"

class InterfaceCache {
public:
    explicit InterfaceCache(const Device& device) : device_(device) {}
    ~InterfaceCache();
    InterfaceCache(InterfaceCache&& other) noexcept;
    InterfaceCache& operator=(InterfaceCache&&) = delete;

    // From now on what was read is kept until the kernel tells of a change. Where it cannot tell, and before this,
    // every call reads the device.
    void watch();

    // 0 or an errno value, and then `table` is empty.
    int read(std::vector<device::Interface>& table);

private:
    const Device& device_;
    int changes_ = -1;
    bool isCurrent_ = false;
    std::vector<device::Interface> kept_{};
};
