#include "values/ip_address.h"

#include <arpa/inet.h>
#include <bit>

#include "console/messages.h"
#include "values/parsers.h"
#include "values/scanners.h"

namespace {
// 0 for the classes D and E, which no single host has.
std::uint32_t classful_mask(std::uint32_t address)
{
    switch (std::countl_one(address)) {
    case 0: return 0xff000000;
    case 1: return 0xffff0000;
    case 2: return 0xffffff00;
    default: return 0;
    }
}
}  // namespace

std::uint32_t CliParseIPAddress(char* text, ParmList& words)
{
    std::uint32_t decimal, error;
    if (!word_ip(&decimal, text, &error)) return error;
    // The address is taken as the system's other tools take it: an octet with a leading 0 is octal. One that makes no
    // sense to them (08, or digits beyond 32 bits) is refused.
    in_addr address;
    if (!inet_aton(text, &address)) return kInvalidIPAddress;
    append_word(words, ntohl(address.s_addr));
    return kOk;
}

std::uint32_t CliParseDestIP(char* text, ParmList& words) { return CliParseIPAddress(text, words); }
std::uint32_t CliParseDestNetmask(char* text, ParmList& words) { return CliParseIPAddress(text, words); }
std::uint32_t CliParseGatewayAddress(char* text, ParmList& words) { return CliParseIPAddress(text, words); }

int ValidNetmask(std::uint32_t mask)
{
    const std::uint32_t hostBits = ~mask;
    return mask == 0 || (hostBits & (hostBits + 1)) != 0;
}

int ValidSingleIP(std::uint32_t address, std::uint32_t mask)
{
    constexpr std::uint32_t kLoopback = 0x7f000000, kAllOnes = 0xffffffff;
    const std::uint32_t host = address & ~mask;
    if (ValidNetmask(mask) != 0) return 1;
    if (classful_mask(address) == 0) return 1;
    if ((address & classful_mask(address)) == kLoopback) return 1;
    if ((address & mask) == 0) return 1;
    if (mask != kAllOnes && host == ~mask) return 1;  // the network's broadcast address
    return host == 0;  // the network itself; under a mask of all ones that is every address
}

int ValidIP(std::uint32_t address) { return ValidSingleIP(address, classful_mask(address)); }

int ValidPort(std::uint32_t port) { return port == 0 || port > 65535; }

int ONEbitcountofNetmask(std::uint32_t mask)
{
    if (mask == 0) return 0;
    if (ValidNetmask(mask) != 0) return -1;
    return std::countl_one(mask) % 32;
}
