#include "platform/wlan_info.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace {
using Ranges = std::span<const WlanChannels>;

// The channels of the two bands, one by one and joined in pairs.
struct Domain {
    std::uint32_t number;
    const char* countries;
    Ranges low, high, lowPairs, highPairs;
};
constexpr WlanChannels kTo11[] = {{1, 11, 1}}, kTo13[] = {{1, 13, 1}}, kTo14[] = {{1, 14, 1}},
                       kFrance[] = {{10, 13, 1}};
constexpr WlanChannels kAmericanHigh[] = {{36, 64, 4}, {149, 165, 4}}, kEuropeanHigh[] = {{36, 64, 4}, {100, 140, 4}},
                       kLowerHigh[] = {{36, 64, 4}};
constexpr WlanChannels kLowPair[] = {{6, 6, 1}}, kHighPairs[] = {{42, 58, 8}, {152, 160, 8}};

// clang-format off
constexpr Domain kDomains[] = {
    {0x10, "United States and Canada (FCC)", kTo11,   kAmericanHigh, kLowPair, kHighPairs},
    {0x30, "Europe (ETSI)",                  kTo13,   kEuropeanHigh, {},       {}},
    {0x31, "Spain",                          kTo13,   kLowerHigh,    {},       {}},
    {0x32, "France",                         kFrance, kLowerHigh,    {},       {}},
    {0x42, "Japan (TELEC)",                  kTo14,   kLowerHigh,    {},       {}},
};

struct Mode {
    std::uint8_t number;
    const char* name;
    Ranges Domain::*channels;
};
constexpr Mode kModes[] = {
    { 2, "11b/g",                 &Domain::low},
    { 3, "11g",                   &Domain::low},
    { 4, "11a",                   &Domain::high},
    { 5, "11a-turbo",             &Domain::highPairs},
    { 6, "super-g",               &Domain::low},
    { 7, "super-g-dynamic-turbo", &Domain::lowPairs},
    { 8, "super-g-static-turbo",  &Domain::lowPairs},
    { 9, "super-a",               &Domain::high},
    {10, "super-a-dynamic-turbo", &Domain::highPairs},
    {11, "super-a-static-turbo",  &Domain::highPairs},
    {12, "11g-turbo",             &Domain::lowPairs},
    {13, "11b",                   &Domain::low},
    {14, "ng",                    &Domain::low},
};
// clang-format on
static_assert(std::size(kModes) <= WLAN_MODES);

const Domain* domain_of(std::uint32_t number)
{
    const auto* found = std::ranges::find(kDomains, number, &Domain::number);
    return found == std::end(kDomains) ? nullptr : found;
}
}  // namespace

uint32_t wlanGetDomain(size_t index) { return index < std::size(kDomains) ? kDomains[index].number : 0; }

const char* wlanGetCountryName(uint32_t domain)
{
    const Domain* found = domain_of(domain);
    return found ? found->countries : nullptr;
}

size_t wlanGetModeInfoList(uint32_t domain, struct WlanModeInfo* list, size_t room)
{
    const Domain* found = domain_of(domain);
    if (!found) return 0;
    std::size_t count = 0;
    for (const Mode& mode : kModes) {
        const Ranges channels = found->*mode.channels;
        if (channels.empty() || count == room) continue;
        list[count++] = {mode.number, mode.name, channels.data(), channels.size()};
    }
    return count;
}
