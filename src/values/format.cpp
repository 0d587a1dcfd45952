#include "values/format.h"

#include <cstdio>

#include "values/mac_address.h"

const char* CliFormatIPv4(std::uint32_t address)
{
    static char text[sizeof "255.255.255.255"];
    std::snprintf(text, sizeof text, "%u.%u.%u.%u", address >> 24, address >> 16 & 255, address >> 8 & 255,
                  address & 255);
    return text;
}

const char* CliFormatMAC(const void* mac)
{
    static char text[3 * kMacSize];
    const auto* byte = static_cast<const unsigned char*>(mac);
    std::snprintf(text, sizeof text, "%02x-%02x-%02x-%02x-%02x-%02x", byte[0], byte[1], byte[2], byte[3], byte[4],
                  byte[5]);
    return text;
}
