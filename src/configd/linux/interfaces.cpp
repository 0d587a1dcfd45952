#include "configd/linux/interfaces.h"

#include <algorithm>
#include <arpa/inet.h>
#include <bit>
#include <cstdio>
#include <cstring>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <net/if_arp.h>
#include <string_view>
#include <unistd.h>

#include "configd/linux/netlink.h"

namespace device {
namespace {
struct Address {
    std::uint32_t index, address;
    std::uint8_t prefix;
};

// The drivers' own names of their kinds, as `ip -d link` shows them.
struct KindName {
    std::string_view name;
    Kind kind;
};
constexpr KindName kKindNames[] = {
    {"bridge", Kind::kBridge},
    {"vlan", Kind::kVlan},
    {"bond", Kind::kBonding},
    {"ppp", Kind::kPppoe},
};

bool is_wireless(const char* name)
{
    char path[64];
    std::snprintf(path, sizeof path, "/sys/class/net/%s/phy80211", name);
    if (access(path, F_OK) == 0) return true;
    std::snprintf(path, sizeof path, "/sys/class/net/%s/wireless", name);
    return access(path, F_OK) == 0;
}

std::string_view driver_kind(const nlattr* linkInfo)
{
    Attributes<IFLA_INFO_MAX> info;
    if (!linkInfo || !info.parse(nla_data(linkInfo), static_cast<std::size_t>(nla_len(linkInfo)))) return {};
    return info.text(IFLA_INFO_KIND);
}

Kind kind_of(unsigned short hardware, std::string_view driver, const char* name)
{
    const auto named = std::ranges::find(kKindNames, driver, &KindName::name);
    if (named != std::end(kKindNames)) return named->kind;
    if (hardware == ARPHRD_PPP) return Kind::kPppoe;
    if (hardware != ARPHRD_ETHER) return Kind::kOther;
    return is_wireless(name) ? Kind::kWireless : Kind::kEthernet;
}

Counters counters_of(const nlattr* statistics)
{
    rtnl_link_stats64 kernel{};
    if (statistics)  // an older kernel tells fewer of them
        nla_memcpy(&kernel, statistics, sizeof kernel);
    return {.rxPackets = kernel.rx_packets,
            .rxBytes = kernel.rx_bytes,
            .rxErrors = kernel.rx_errors,
            .rxDropped = kernel.rx_dropped,
            .txPackets = kernel.tx_packets,
            .txBytes = kernel.tx_bytes,
            .txErrors = kernel.tx_errors,
            .txDropped = kernel.tx_dropped,
            .txAborted = kernel.tx_aborted_errors,
            .collisions = kernel.collisions};
}

// The carrier itself where the kernel tells it: the flag follows it up to a second later.
bool carries(const nlattr* carrier, unsigned int flags)
{
    return carrier ? nla_get_u8(carrier) != 0 : (flags & IFF_RUNNING) != 0;
}

void keep_interface(nlmsghdr* message, void* data)
{
    const auto* head = static_cast<const ifinfomsg*>(nlmsg_data(message));
    Attributes<IFLA_MAX> attributes;
    if (message->nlmsg_type != RTM_NEWLINK || !attributes.parse(message, sizeof *head)) return;
    const std::string_view name = attributes.text(IFLA_IFNAME);
    if (name.empty() || name.size() >= sizeof(Interface::name)) return;

    Interface& interface = static_cast<std::vector<Interface>*>(data)->emplace_back();
    name.copy(interface.name, name.size());
    interface.index = static_cast<std::uint32_t>(head->ifi_index);
    interface.up = head->ifi_flags & IFF_UP;
    interface.running =
        interface.up && carries(attributes.at_least(IFLA_CARRIER, sizeof(std::uint8_t)), head->ifi_flags);
    interface.kind = kind_of(head->ifi_type, driver_kind(attributes.of[IFLA_LINKINFO]), interface.name);
    interface.mtu = attributes.u32(IFLA_MTU);
    interface.counters = counters_of(attributes.of[IFLA_STATS64]);
    constexpr int kMacSize = 6;
    const nlattr* mac = attributes.of[IFLA_ADDRESS];
    if (mac && nla_len(mac) == kMacSize) nla_memcpy(interface.mac.data(), mac, kMacSize);
}

void keep_primary_address(nlmsghdr* message, void* data)
{
    const auto* head = static_cast<const ifaddrmsg*>(nlmsg_data(message));
    Attributes<IFA_MAX> attributes;
    if (message->nlmsg_type != RTM_NEWADDR || !attributes.parse(message, sizeof *head)) return;
    if (head->ifa_family != AF_INET || (head->ifa_flags & IFA_F_SECONDARY)) return;

    auto& addresses = *static_cast<std::vector<Address>*>(data);
    if (std::ranges::find(addresses, head->ifa_index, &Address::index) == addresses.end())
        addresses.push_back({head->ifa_index, ntohl(attributes.u32(IFA_LOCAL)), head->ifa_prefixlen});
}

int read_addresses(std::vector<Address>& addresses)
{
    ifaddrmsg head{};
    head.ifa_family = AF_INET;
    return netlink_read(Request(RTM_GETADDR, head), keep_primary_address, addresses);
}

// RTM_NEWADDR or RTM_DELADDR
int change_address(int operation, const Address& address)
{
    ifaddrmsg head{};
    head.ifa_family = AF_INET;
    head.ifa_index = address.index;
    head.ifa_prefixlen = address.prefix;
    Request request(operation, head, operation == RTM_NEWADDR ? NLM_F_CREATE | NLM_F_EXCL : 0);
    request.put_u32(IFA_LOCAL, htonl(address.address));
    request.put_u32(IFA_ADDRESS, htonl(address.address));
    if (operation == RTM_NEWADDR && address.prefix < 31)
        request.put_u32(IFA_BROADCAST, htonl(address.address | ~netmask_of(address.prefix)));
    return netlink_change(request);
}
}  // namespace

int read_interfaces(std::vector<Interface>& table)
{
    const ifinfomsg head{};  // AF_UNSPEC
    if (const int error = netlink_read(Request(RTM_GETLINK, head), keep_interface, table); error != 0) return error;

    std::vector<Address> addresses;
    if (const int error = read_addresses(addresses); error != 0) {
        table.clear();
        return error;
    }
    for (Interface& interface : table) {
        const auto own = std::ranges::find(addresses, interface.index, &Address::index);
        if (own == addresses.end()) continue;
        interface.address = own->address;
        interface.netmask = netmask_of(own->prefix);
    }
    return 0;
}

int set_address(const char* name, std::uint32_t address, std::uint32_t netmask)
{
    const Address wanted{if_nametoindex(name), address, static_cast<std::uint8_t>(std::popcount(netmask))};
    if (wanted.index == 0) return ENODEV;
    if (netmask_of(wanted.prefix) != netmask) return EINVAL;

    std::vector<Address> addresses;
    if (const int error = read_addresses(addresses); error != 0) return error;
    const auto old = std::ranges::find(addresses, wanted.index, &Address::index);
    const bool hadOne = old != addresses.end();
    if (hadOne && old->address == wanted.address && old->prefix == wanted.prefix) return 0;

    // The old one goes first: beside it a new one of the same network would be secondary, and go when the old one goes.
    if (hadOne)
        if (const int error = change_address(RTM_DELADDR, *old); error != 0) return error;
    if (address == 0) return 0;
    const int error = change_address(RTM_NEWADDR, wanted);
    if (error != 0 && hadOne) change_address(RTM_NEWADDR, *old);
    return error;
}

int set_link_up(const char* name, bool up)
{
    const unsigned int index = if_nametoindex(name);
    if (index == 0) return ENODEV;

    ifinfomsg head{};
    head.ifi_family = AF_UNSPEC;
    head.ifi_index = static_cast<int>(index);
    head.ifi_change = IFF_UP;
    head.ifi_flags = up ? IFF_UP : 0;
    return netlink_change(Request(RTM_NEWLINK, head));
}

const Interface* find_interface(const std::vector<Interface>& table, const char* name)
{
    const auto found =
        std::ranges::find_if(table, [name](const Interface& each) { return std::strcmp(each.name, name) == 0; });
    return found == table.end() ? nullptr : &*found;
}
}  // namespace device
