// A bridge of this machine, as the kernel tells about it under /sys/class/net.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "configd/linux/interfaces.h"

namespace device {
struct BridgePort {
    std::string name;
    std::uint16_t number;
    std::uint8_t state;  // 0 disabled, 1 listening, 2 learning, 3 forwarding, 4 blocking
    std::uint32_t cost, priority;
};

struct BridgeEntry {
    Mac mac;
    std::uint16_t port;  // BridgePort::number
    bool own;            // an address of the port itself
    std::uint32_t age;   // hundredths of a second
};

struct Bridge {
    bool stp;
    std::string id, root;
    std::uint32_t rootCost;
    std::vector<BridgePort> ports;     // by number
    std::vector<BridgeEntry> entries;  // what it has learned
};

// All below answer 0 or an errno value; ENODEV: no bridge of that name. On failure the bridge is empty.
int read_bridge(const std::string& name, Bridge& bridge);
int set_bridge_stp(const std::string& name, bool on);
}  // namespace device
