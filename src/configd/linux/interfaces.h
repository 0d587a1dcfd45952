// The network interfaces of this machine, as the kernel tells them (netlink), and the two changes that a device
// managing its own LAN makes to them. Everything happens in the network namespace that the service runs in.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace device {
using Mac = std::array<std::uint8_t, 6>;

inline constexpr std::size_t kInterfaceNameSize = 16;  // 15 characters and the NUL, as the kernel has it

// The kinds that the interface table tells apart (interface_entry::Type has the same numbers).
enum class Kind : std::uint8_t { kOther = 0, kEthernet, kWireless, kBridge, kPppoe, kPptp, kVlan, kBonding };

struct Counters {
    std::uint64_t rxPackets, rxBytes, rxErrors, rxDropped;
    std::uint64_t txPackets, txBytes, txErrors, txDropped, txAborted;
    std::uint64_t collisions;
};

struct Interface {
    char name[kInterfaceNameSize];
    std::uint32_t index;
    bool up;       // switched on
    bool running;  // and its link carries
    Kind kind;     // kOther: loopback, tunnels. The kernel does not tell PPTP from PPPoE: every PPP link is kPppoe
    Mac mac;       // zeros when it has none
    std::uint32_t mtu;
    std::uint32_t address, netmask;  // the primary IPv4 address, host order; 0: none
    Counters counters;
};

// All below answer 0 or an errno value.

// In the kernel's order. On failure the table is empty.
int read_interfaces(std::vector<Interface>& table);

// Replaces the primary IPv4 address; address 0 takes it away. The old address stays when the new one is refused. The
// routes through the old network go with it: the caller puts its own back.
int set_address(const char* name, std::uint32_t address, std::uint32_t netmask);

int set_link_up(const char* name, bool up);

// nullptr when the table has none of that name.
const Interface* find_interface(const std::vector<Interface>& table, const char* name);
}  // namespace device
