#include "values/interface_names.h"

#include <array>
#include <cstring>

namespace {
constexpr std::array kLanNames{"eth0", "eth1", "eth2", "eth3", "eth4"};
constexpr std::array kWlanNames{"wlan0", "wlan1", "wlan2", "wlan3", "wlan4", "wlan5"};

struct PortName {
    const char* interface;
    const char* port;
};
constexpr PortName kPortNames[] = {{"eth0", "lan"}, {"eth1", "wan"}, {"wlan0", "wlan"}};
}  // namespace

const char* GetLanIfName(unsigned index) { return index < kLanNames.size() ? kLanNames[index] : ""; }
const char* GetWLanIfName(unsigned index) { return index < kWlanNames.size() ? kWlanNames[index] : ""; }
const char* GetWanIfName(unsigned index) { return index < kLanNames.size() ? GetLanIfName(index + 1) : ""; }

const char* GetPortNameFromInterface(const char* name)
{
    for (const PortName& known : kPortNames)
        if (std::strcmp(name, known.interface) == 0) return known.port;
    return name;
}
