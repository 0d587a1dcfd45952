// The name servers that the machine asks.
#pragma once

#include <array>
#include <cstdint>

namespace device {
inline constexpr const char* kResolverFile = "/etc/resolv.conf";

// The first two IPv4 name servers of the file, host order; 0 where there is none or no file.
std::array<std::uint32_t, 2> read_name_servers(const char* path);

// The file then names these and no others; 0: none. What else stood in it is gone. 0 or an errno value.
int set_name_servers(const char* path, const std::array<std::uint32_t, 2>& servers);
}  // namespace device
