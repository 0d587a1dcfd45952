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
    if (!linkInfo || mnl_attr_parse_nested(linkInfo, info.keep, &info) < 0) return {};
    const nlattr* kind = info.get(IFLA_INFO_KIND, MNL_TYPE_STRING);
    if (!kind) return {};
    const char* text = mnl_attr_get_str(kind);
    return {text, strnlen(text, mnl_attr_get_payload_len(kind))};
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
        std::memcpy(&kernel, mnl_attr_get_payload(statistics),
                    std::min<std::size_t>(mnl_attr_get_payload_len(statistics), sizeof kernel));
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
    return carrier ? mnl_attr_get_u8(carrier) != 0 : (flags & IFF_RUNNING) != 0;
}

int keep_interface(const nlmsghdr* message, void* data)
{
    if (message->nlmsg_type != RTM_NEWLINK) return MNL_CB_OK;
    const auto* head = static_cast<const ifinfomsg*>(mnl_nlmsg_get_payload(message));
    Attributes<IFLA_MAX> attributes;
    if (mnl_attr_parse(message, sizeof *head, attributes.keep, &attributes) < 0) return MNL_CB_OK;
    const nlattr* name = attributes.get(IFLA_IFNAME, MNL_TYPE_NUL_STRING);
    if (!name) return MNL_CB_OK;

    Interface& interface = static_cast<std::vector<Interface>*>(data)->emplace_back();
    std::snprintf(interface.name, sizeof interface.name, "%s", mnl_attr_get_str(name));
    interface.index = static_cast<std::uint32_t>(head->ifi_index);
    interface.up = head->ifi_flags & IFF_UP;
    interface.running = interface.up && carries(attributes.get(IFLA_CARRIER, MNL_TYPE_U8), head->ifi_flags);
    interface.kind = kind_of(head->ifi_type, driver_kind(attributes.of[IFLA_LINKINFO]), interface.name);
    interface.mtu = attributes.u32(IFLA_MTU);
    interface.counters = counters_of(attributes.of[IFLA_STATS64]);
    const nlattr* mac = attributes.of[IFLA_ADDRESS];
    if (mac && mnl_attr_get_payload_len(mac) == interface.mac.size())
        std::memcpy(interface.mac.data(), mnl_attr_get_payload(mac), interface.mac.size());
    return MNL_CB_OK;
}

int keep_primary_address(const nlmsghdr* message, void* data)
{
    if (message->nlmsg_type != RTM_NEWADDR) return MNL_CB_OK;
    const auto* head = static_cast<const ifaddrmsg*>(mnl_nlmsg_get_payload(message));
    if (head->ifa_family != AF_INET || (head->ifa_flags & IFA_F_SECONDARY)) return MNL_CB_OK;
    Attributes<IFA_MAX> attributes;
    if (mnl_attr_parse(message, sizeof *head, attributes.keep, &attributes) < 0) return MNL_CB_OK;

    auto& addresses = *static_cast<std::vector<Address>*>(data);
    if (std::ranges::find(addresses, head->ifa_index, &Address::index) == addresses.end())
        addresses.push_back({head->ifa_index, ntohl(attributes.u32(IFA_LOCAL)), head->ifa_prefixlen});
    return MNL_CB_OK;
}

int read_addresses(std::vector<Address>& addresses)
{
    alignas(nlmsghdr) char room[kRequestSize];
    nlmsghdr* request = mnl_nlmsg_put_header(room);
    request->nlmsg_type = RTM_GETADDR;
    auto* head = static_cast<ifaddrmsg*>(mnl_nlmsg_put_extra_header(request, sizeof(ifaddrmsg)));
    head->ifa_family = AF_INET;
    return netlink_read(request, keep_primary_address, addresses);
}

// RTM_NEWADDR or RTM_DELADDR
int change_address(std::uint16_t operation, const Address& address)
{
    alignas(nlmsghdr) char room[kRequestSize];
    nlmsghdr* request = mnl_nlmsg_put_header(room);
    request->nlmsg_type = operation;
    if (operation == RTM_NEWADDR) request->nlmsg_flags = NLM_F_CREATE | NLM_F_EXCL;
    auto* head = static_cast<ifaddrmsg*>(mnl_nlmsg_put_extra_header(request, sizeof(ifaddrmsg)));
    head->ifa_family = AF_INET;
    head->ifa_index = address.index;
    head->ifa_prefixlen = address.prefix;
    mnl_attr_put_u32(request, IFA_LOCAL, htonl(address.address));
    mnl_attr_put_u32(request, IFA_ADDRESS, htonl(address.address));
    if (operation == RTM_NEWADDR && address.prefix < 31)
        mnl_attr_put_u32(request, IFA_BROADCAST, htonl(address.address | ~netmask_of(address.prefix)));
    return netlink_change(request);
}
}  // namespace

int read_interfaces(std::vector<Interface>& table)
{
    alignas(nlmsghdr) char room[kRequestSize];
    nlmsghdr* request = mnl_nlmsg_put_header(room);
    request->nlmsg_type = RTM_GETLINK;
    auto* head = static_cast<ifinfomsg*>(mnl_nlmsg_put_extra_header(request, sizeof(ifinfomsg)));
    head->ifi_family = AF_UNSPEC;
    if (const int error = netlink_read(request, keep_interface, table); error != 0) return error;

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

    alignas(nlmsghdr) char room[kRequestSize];
    nlmsghdr* request = mnl_nlmsg_put_header(room);
    request->nlmsg_type = RTM_NEWLINK;
    auto* head = static_cast<ifinfomsg*>(mnl_nlmsg_put_extra_header(request, sizeof(ifinfomsg)));
    head->ifi_family = AF_UNSPEC;
    head->ifi_index = static_cast<int>(index);
    head->ifi_change = IFF_UP;
    head->ifi_flags = up ? IFF_UP : 0;
    return netlink_change(request);
}

const Interface* find_interface(const std::vector<Interface>& table, const char* name)
{
    const auto found =
        std::ranges::find_if(table, [name](const Interface& each) { return std::strcmp(each.name, name) == 0; });
    return found == table.end() ? nullptr : &*found;
}
}  // namespace device
