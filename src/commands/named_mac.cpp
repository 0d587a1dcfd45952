#include "commands/named_mac.h"

#include <cstdio>
#include <cstring>

const unsigned char* last_mac_parm(const ActionBlock& call)
{
    return reinterpret_cast<const unsigned char*>(&call.parms.value[call.parms.count - 2]);
}

const char* upper_mac(const unsigned char* mac)
{
    static char text[sizeof "00-11-22-33-44-55"];
    std::snprintf(text, sizeof text, "%02X-%02X-%02X-%02X-%02X-%02X", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
    return text;
}

void print_named_mac(const char* row, const char* name, const unsigned char* mac)
{
    std::printf(row, name, upper_mac(mac));
    if (std::strlen(name) > kNameColumn) std::printf("%-15s\n", name + kNameColumn);
}
