// Interfaces, addresses, routes and links of a small network that each test makes for itself: two ports joined by a
// cable.
#include <algorithm>
#include <cerrno>

#include "configd/linux/device.h"
#include "support/own_network.h"

namespace {
const std::string kTwoPorts = "ip link set eth0 address 02:00:5e:00:00:01 up mtu 1400 && ip link set eth1 up && "
                              "ip addr add 192.168.1.1/24 dev eth0 && ip addr add 10.9.0.2/30 dev eth1 && "
                              "ip addr add 192.168.1.77/24 dev eth0";

constexpr std::uint32_t ip(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
{
    return a << 24 | b << 16 | c << 8 | d;
}
constexpr std::uint32_t kMask24 = ip(255, 255, 255, 0);

device::Interface interface(const char* name)
{
    std::vector<device::Interface> table;
    EXPECT_EQ(kLinuxDevice.read_interfaces(table), 0);
    const device::Interface* found = device::find_interface(table, name);
    EXPECT_NE(found, nullptr) << name;
    return found ? *found : device::Interface{};
}

device::Route route_to(std::uint32_t destination, std::uint32_t netmask, std::uint32_t gateway, const char* name = "")
{
    device::Route route{.destination = destination, .netmask = netmask, .gateway = gateway};
    std::snprintf(route.interface, sizeof route.interface, "%s", name);
    return route;
}

std::vector<device::Route> routes()
{
    std::vector<device::Route> table;
    EXPECT_EQ(kLinuxDevice.read_routes(table), 0);
    return table;
}

const device::Route* find(const std::vector<device::Route>& table, std::uint32_t destination, std::uint32_t netmask)
{
    const auto found = std::ranges::find_if(
        table, [&](const device::Route& r) { return r.destination == destination && r.netmask == netmask; });
    return found == table.end() ? nullptr : &*found;
}

TEST(Interfaces, TellKindLinkAndCounters)
{
    in_own_network(kTwoPorts, [] {
        EXPECT_EQ(interface("lo").kind, device::Kind::kOther);
        EXPECT_EQ(interface("eth0").kind, device::Kind::kEthernet);
        EXPECT_EQ(interface("eth0").mac, (device::Mac{2, 0, 0x5e, 0, 0, 1}));
        EXPECT_EQ(interface("eth0").mtu, 1400);
        EXPECT_TRUE(interface("eth0").running);
        const device::Counters before = interface("eth0").counters;
        ASSERT_EQ(std::system("ip neigh add 192.168.1.9 lladdr 02:00:5e:00:00:09 dev eth0 && "
                              "bash -c 'for i in 1 2 3; do echo x > /dev/udp/192.168.1.9/9; done'"),
                  0);
        const device::Counters after = interface("eth0").counters;
        EXPECT_GE(after.txPackets, before.txPackets + 3);
        EXPECT_GT(after.txBytes, before.txBytes);
        EXPECT_GE(interface("eth1").counters.rxPackets, after.txPackets);

        ASSERT_EQ(kLinuxDevice.set_link_up("eth1", false), 0);
        EXPECT_FALSE(interface("eth1").up);
        EXPECT_TRUE(interface("eth0").up);
        EXPECT_FALSE(interface("eth0").running);
        EXPECT_EQ(kLinuxDevice.set_link_up("eth7", true), ENODEV);
    });
}

TEST(Interfaces, MoreThanOneAnswerOfTheKernelHolds)
{
    constexpr const char* kMany = "for i in $(seq 1 40); do ip link add p$i type veth peer name q$i || exit 1; done";
    in_own_network(kMany, [] {
        interface("p1");
        EXPECT_EQ(interface("q40").kind, device::Kind::kEthernet);
    });
}

TEST(Addresses, PrimaryIsReplaced)
{
    in_own_network(kTwoPorts, [] {
        struct Step {
            const char* name;
            std::uint32_t address, netmask;
            int error;
            std::uint32_t shown;
        };
        constexpr Step kSteps[] = {
            {"other host of the same network", ip(192, 168, 1, 5), kMask24, 0, ip(192, 168, 1, 5)},
            {"same address, other netmask", ip(192, 168, 1, 5), ip(255, 255, 0, 0), 0, ip(192, 168, 1, 5)},
            {"other network", ip(172, 16, 0, 1), kMask24, 0, ip(172, 16, 0, 1)},
            {"netmask with a hole", ip(172, 16, 0, 2), ip(255, 0, 255, 0), EINVAL, ip(172, 16, 0, 1)},
            {"taken away", 0, 0, 0, 0},
        };
        for (const Step& step : kSteps) {
            EXPECT_EQ(kLinuxDevice.set_address("eth0", step.address, step.netmask), step.error) << step.name;
            EXPECT_EQ(interface("eth0").address, step.shown) << step.name;
            if (step.error != 0) continue;
            EXPECT_EQ(interface("eth0").netmask, step.netmask) << step.name;
        }
        EXPECT_EQ(kLinuxDevice.set_address("eth7", ip(10, 0, 0, 1), kMask24), ENODEV);
        EXPECT_EQ(interface("eth1").address, ip(10, 9, 0, 2));
    });
}

TEST(Routes, AddedOnesAreInTheTableUntilDeleted)
{
    in_own_network(kTwoPorts, [] {
        device::Route far = route_to(ip(10, 20, 0, 0), ip(255, 255, 0, 0), ip(192, 168, 1, 254));
        far.metric = 5;
        const device::Route standard = route_to(0, 0, ip(10, 9, 0, 1));
        const device::Route host = route_to(ip(172, 16, 5, 9), ~0u, 0, "eth1");
        const device::Route* const all[] = {&far, &standard, &host};
        for (const device::Route* route : all) ASSERT_EQ(kLinuxDevice.add_route(*route), 0);

        const std::string told = shell("ip route show");
        EXPECT_NE(told.find("10.20.0.0/16 via 192.168.1.254 dev eth0 proto static metric 5"), std::string::npos)
            << told;
        EXPECT_NE(told.find("default via 10.9.0.1 dev eth1 proto static"), std::string::npos) << told;
        EXPECT_NE(told.find("172.16.5.9 dev eth1 proto static scope link"), std::string::npos) << told;

        const std::vector<device::Route> table = routes();
        EXPECT_EQ(table.size(), static_cast<std::size_t>(std::ranges::count(told, '\n')));
        const device::Route* shown = find(table, far.destination, far.netmask);
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->gateway, far.gateway);
        EXPECT_EQ(shown->metric, 5u);
        EXPECT_STREQ(shown->interface, "eth0");
        EXPECT_EQ(shown->flags, device::kRouteUp | device::kRouteGateway);
        shown = find(table, host.destination, host.netmask);
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->flags, device::kRouteUp | device::kRouteHost);
        shown = find(table, ip(192, 168, 1, 0), kMask24);
        ASSERT_NE(shown, nullptr);
        EXPECT_TRUE(shown->connected);

        for (const device::Route* route : all) {
            EXPECT_EQ(kLinuxDevice.delete_route(route_to(route->destination, route->netmask, 0)), 0);
            EXPECT_EQ(find(routes(), route->destination, route->netmask), nullptr);
            EXPECT_EQ(kLinuxDevice.delete_route(*route), ESRCH);
        }
    });
}
}  // namespace
