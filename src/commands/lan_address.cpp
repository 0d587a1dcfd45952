#include "commands/lan_address.h"

#include <cstring>

#include "console/messages.h"
#include "service/fields/address.h"

std::uint32_t g_unNumOfHosts = 253;

namespace {
constexpr char kLan[] = "lan";
constexpr std::uint32_t kLoopbackOctet = 127;
constexpr std::uint32_t kHostMask = 0xff;  // a pool lies within one /24
constexpr unsigned kFirstOctetShift = 24;
}  // namespace

Outcome read_lan_record()
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    address_record::interface.set(usrComParam, kLan);
    return write_record(code::kReadAddress);
}

std::uint32_t CliGetNetworkIP(std::uint32_t address, std::uint32_t mask) { return address & mask; }
std::uint32_t CliGetBroadCastIP(std::uint32_t address, std::uint32_t mask) { return (address & mask) | ~mask; }

std::uint32_t CliVerifyIP(std::uint32_t address)
{
    if (!read_lan_record().ok()) return kOk;
    const std::uint32_t lan = address_record::address.get(usrComParam);
    const std::uint32_t mask = address_record::netmask.get(usrComParam);

    if (address >> kFirstOctetShift == kLoopbackOctet) return kAddressIsLoopback;
    if (address == CliGetNetworkIP(lan, mask)) return kAddressIsNetwork;
    if (address == CliGetBroadCastIP(lan, mask)) return kAddressIsBroadcast;
    if (address == lan) return kAddressIsOwn;
    if (address == 0) return kAddressIsZero;
    if (address == 0xffffffff) return kAddressIsAllOnes;
    return kOk;
}

std::uint32_t CliVerifyDhcpIpRange(std::uint32_t lower, std::uint32_t upper)
{
    if ((lower & ~kHostMask) != (upper & ~kHostMask)) return kNotInGatewaySubnet;
    const auto width = static_cast<std::int32_t>(upper & kHostMask) - static_cast<std::int32_t>(lower & kHostMask);
    return width > static_cast<std::int32_t>(g_unNumOfHosts) ? kDhcpPoolTooWide : kOk;
}
