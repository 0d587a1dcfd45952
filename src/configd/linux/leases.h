// The addresses that the DHCP server has given out: dnsmasq's lease file.
#pragma once

#include <cstdint>
#include <vector>

#include "configd/linux/interfaces.h"

namespace device {
struct Lease {
    std::uint32_t expires;  // seconds since the epoch; 0: never
    Mac mac;
    std::uint32_t address;  // host order
    char hostName[31];      // empty when the client gave none; cut to this room, printable characters only
};

inline constexpr std::size_t kMaxLeases = 1024;

// The IPv4 leases in the file's order; a line that is none is skipped, what lies behind kMaxLeases is left out.
// 0 or an errno value; no file (ENOENT) means that nothing was given out yet.
int read_leases(const char* path, std::vector<Lease>& leases);
}  // namespace device
