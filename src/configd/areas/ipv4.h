// What an IPv4 address can be, as the settings of several areas take it. All values in host order.
#pragma once

#include <cstdint>

// A netmask's bits stand in one block from the top.
constexpr bool is_netmask(std::int64_t value)
{
    const auto holes = ~static_cast<std::uint32_t>(value);
    return (holes & (holes + 1)) == 0;
}

// An address that one machine can have: neither "this network" nor loopback, multicast or broadcast.
constexpr bool is_host(std::int64_t value)
{
    constexpr std::int64_t kThisNetwork = 0, kLoopback = 127, kMulticast = 224;
    const std::int64_t first = value >> 24;
    return first != kThisNetwork && first != kLoopback && first < kMulticast;
}

constexpr bool is_host_or_none(std::int64_t value) { return value == 0 || is_host(value); }

// Of a network of one or two addresses every one is a host's; any other has a network and a broadcast address.
constexpr bool is_host_of_network(std::uint32_t address, std::uint32_t netmask)
{
    const bool hasEnds = ~netmask > 1;
    return is_host(address) && !(hasEnds && ((address & ~netmask) == 0 || (address | netmask) == 0xFFFFFFFF));
}
