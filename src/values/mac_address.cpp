#include "values/mac_address.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "console/messages.h"
#include "values/parsers.h"
#include "values/scanners.h"

namespace {
using Mac = std::array<unsigned char, kMacSize>;

bool belongs_to_a_station(const Mac& mac)
{
    const auto all = [&mac](unsigned char byte) { return std::ranges::count(mac, byte) == std::ssize(mac); };
    return !all(0x00) && !all(0xff);
}

bool scan_mac(const char* text, Mac& mac, char separator)
{
    for (unsigned i = 0; i < kMacSize; ++i) {
        const bool last = i + 1 == kMacSize;
        std::uint32_t octet;
        if (!parse_hex(&text, &octet, last ? 0 : separator) || octet > 255) return false;
        mac[i] = static_cast<unsigned char>(octet);
        if (!last) ++text;
    }
    return belongs_to_a_station(mac);
}
}  // namespace

std::uint32_t CliParseMACAddress(char* text, ParmList& words)
{
    Mac mac;
    if (!scan_mac(text, mac, '-')) return kInvalidMACAddress;
    append_bytes(words, mac.data(), mac.size(), 2);  // two words of the device; where a word is longer, still two
    return kOk;
}

int parse_mac_address(const char* text, unsigned char* mac, char separator)
{
    Mac scanned;
    if ((separator != ':' && separator != '-') || !scan_mac(text, scanned, separator)) return 1;
    std::ranges::copy(scanned, mac);
    return 0;
}

bool isValidMacAddr(const char* text)
{
    constexpr std::size_t kTextLength = 3 * kMacSize - 1;
    Mac mac;
    if (std::strlen(text) != kTextLength) return false;
    for (std::size_t i = 2; i < kTextLength; i += 3)
        if (text[i] != '-') return false;
    return scan_mac(text, mac, '-');
}

bool isValidMacMask(const char* text)
{
    return std::strlen(text) == 2 * kMacSize && parse_hex_str(text, kMacSize) != nullptr;
}
