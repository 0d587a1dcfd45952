// How many entries the tables of the wireless side hold.
#pragma once

#include <cstddef>

inline constexpr std::size_t kMostMacFilters = 32;
inline constexpr std::size_t kMostWdsPeers = 8;
