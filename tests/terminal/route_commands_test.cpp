// Routes, interfaces and their counters as an operator sees them, on a network that the test makes for itself: console,
// service and ip(8) all live in it.
#include <gtest/gtest.h>

#include "support/own_network.h"
#include "support/service.h"
#include "support/terminal.h"

namespace {
// Without IPv6 nothing is sent that the test does not send.
const std::string kDevice =
    "{ echo 1 > /proc/sys/net/ipv6/conf/all/disable_ipv6; } 2>/dev/null; "
    "ip link add wlan0 type veth peer name air0 && { ip link add br0 type bridge 2>/dev/null; true; } && "
    "ip link set eth0 address 02:00:5e:00:00:ab up && ip link set eth1 address 02:00:5e:00:00:02 up && "
    "ip link set wlan0 address 02:00:5e:00:00:10 && "
    "ip addr add 192.168.1.1/24 dev eth0 && ip addr add 10.9.0.2/30 dev eth1";

std::string kernel_routes() { return shell("ip -4 route show"); }

bool kernel_has(const std::string& route)
{
    const Deadline deadline(kPatience);
    while (kernel_routes().find(route) == std::string::npos)
        if (deadline.passed()) return false;
    return true;
}

struct Session {
    Session() { t.log_in(); }

    // What a command prints, without its own echo and the prompt behind it.
    std::string run(const std::string& command)
    {
        t.type(command + '\n');
        t.until(command + '\n');
        std::string printed = t.until("Command> ");
        printed.resize(printed.size() - std::string_view("Command> ").size());
        return printed;
    }

    Service service;
    Terminal t;
};

TEST(RouteCommands, TheTableIsTheKernelsAndSurvivesARestart)
{
    in_own_network(kDevice, [] {
        Session session;
        const std::string head = "Destination     Gateway         Genmask         hop    Ifname  Flags\n"
                                 "--------------------------------------------------------------------\n";
        const std::string wan = "10.9.0.0        0.0.0.0         255.255.255.252 0      eth1    U\n",
                          far = "10.20.0.0       10.9.0.1        255.255.0.0     5      eth1    UG\n",
                          lan = "192.168.1.0     0.0.0.0         255.255.255.0   0      eth0    U\n",
                          standard = "0.0.0.0         10.9.0.1        0.0.0.0         0      eth1    UG\n";
        EXPECT_EQ(session.run("add ip route 10.20.0.0 255.255.0.0 10.9.0.1 5"), head + wan + far + lan);
        EXPECT_EQ(session.run("add ip default route 10.9.0.1"), head + standard + wan + far + lan);
        EXPECT_NE(session.run("show system").find("Gateway IP address:      10.9.0.1\n"), std::string::npos);

        const std::string all = kernel_routes();
        session.service.stop();
        shell("ip route flush proto static");
        EXPECT_NE(kernel_routes(), all);
        session.service.start();
        EXPECT_EQ(kernel_routes(), all);

        shell("ip link set eth1 down");
        EXPECT_EQ(kernel_routes().find("10.9.0.1"), std::string::npos);
        shell("ip link set eth1 up");
        EXPECT_TRUE(kernel_has("10.20.0.0/16 via 10.9.0.1 dev eth1 proto static metric 5")) << kernel_routes();
        EXPECT_TRUE(kernel_has("default via 10.9.0.1 dev eth1 proto static")) << kernel_routes();

        EXPECT_EQ(session.run("delete ip default route"), head + wan + far + lan);
        session.run("delete ip route 10.20.0.0 255.255.0.0");
        EXPECT_EQ(kernel_routes().find("static"), std::string::npos);
    });
}

}  // namespace
