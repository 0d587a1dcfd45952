#include <algorithm>
#include <cerrno>
#include <sys/mount.h>

#include "configd/linux/bridge.h"
#include "support/own_network.h"

namespace {
// Interfaces of the own network stand in the /sys that is mounted inside it.
bool mount_own_sys()
{
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("sysfs", "/sys", "sysfs", 0, nullptr) == 0;
}

TEST(Bridge, ShowsPortsAndSwitchesTheSpanningTree)
{
    const std::string setup = "ip link add br0 type bridge && ip link set eth0 master br0 && ip link set br0 up && "
                              "ip link set eth0 up && ip link set eth1 up";
    in_own_network(setup, [] {
        if (!mount_own_sys()) _exit(own_network::kNotAllowed);
        device::Bridge bridge;
        ASSERT_EQ(device::read_bridge("br0", bridge), 0);
        EXPECT_FALSE(bridge.stp);
        ASSERT_EQ(bridge.ports.size(), 1u);
        EXPECT_EQ(bridge.ports[0].name, "eth0");
        EXPECT_EQ(bridge.ports[0].number, 1);
        EXPECT_GT(bridge.ports[0].cost, 0u);
        EXPECT_EQ(bridge.id.size(), sizeof "8000.02005e100001" - 1) << bridge.id;
        EXPECT_TRUE(std::ranges::any_of(bridge.entries, [](const auto& each) { return each.own && each.port == 1; }));

        ASSERT_EQ(device::set_bridge_stp("br0", true), 0);
        ASSERT_EQ(device::read_bridge("br0", bridge), 0);
        EXPECT_TRUE(bridge.stp);
        EXPECT_EQ(device::read_bridge("eth0", bridge), ENODEV);
        EXPECT_TRUE(bridge.ports.empty());
    });
}
}  // namespace
