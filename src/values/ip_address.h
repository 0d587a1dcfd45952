// Which addresses, masks and ports can be used. Everything in host order; 0 says valid.
#pragma once

#include <cstdint>

int ValidNetmask(std::uint32_t mask);                          // contiguous one bits from the top, at least one
int ValidSingleIP(std::uint32_t address, std::uint32_t mask);  // a single host's address within the mask's network
int ValidIP(std::uint32_t address);                            // the same with the mask of the address's class
int ValidPort(std::uint32_t port);                             // 1 to 65535

// Length of a mask's prefix; -1 for one with holes. All ones give 0, as no bits do.
int ONEbitcountofNetmask(std::uint32_t mask);
