// Tests of an address against the device's own LAN network.
#pragma once

#include <cstdint>

#include "service/client.h"

extern std::uint32_t g_unNumOfHosts;  // the largest allowed width of an address pool

// The LAN record into usrComParam. The outcome is the request's.
Outcome read_lan_record();

std::uint32_t CliGetNetworkIP(std::uint32_t address, std::uint32_t mask);
std::uint32_t CliGetBroadCastIP(std::uint32_t address, std::uint32_t mask);

// 0, or the number of the message that says why the device cannot use the address for another host. Whether it lies in
// the LAN network is not tested; while the LAN record cannot be read every address passes.
std::uint32_t CliVerifyIP(std::uint32_t address);

// 0, or a message number: both addresses in one /24, the upper at most g_unNumOfHosts above the lower.
std::uint32_t CliVerifyDhcpIpRange(std::uint32_t lower, std::uint32_t upper);
