// Routes, interfaces and their counters as an operator sees them, on a network that the test makes for itself: console,
// service and ip(8) all live in it.
#include <array>
#include <bit>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

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

std::string shell(const std::string& command)
{
    std::string output;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return output;
    char piece[4096];
    for (std::size_t got; (got = fread(piece, 1, sizeof piece, pipe)) > 0;) output.append(piece, got);
    pclose(pipe);
    return output;
}

std::string kernel_routes() { return shell("ip -4 route show"); }

std::string as_row(const std::string& target, const std::string& gateway, const std::string& interface, int metric)
{
    return target + " via " + gateway + " dev " + interface + " metric " + std::to_string(metric) + "\n";
}

// What ip(8) tells, brought into one form with what the console shows.
std::string rows_of_kernel()
{
    std::istringstream lines(kernel_routes());
    std::string rows;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string target, word, gateway = "0.0.0.0", interface;
        int metric = 0;
        words >> target;
        while (words >> word) {
            if (word == "via") words >> gateway;
            if (word == "dev") words >> interface;
            if (word == "metric") words >> metric;
        }
        if (target == "default") target = "0.0.0.0/0";
        if (target.find('/') == target.npos) target += "/32";
        rows += as_row(target, gateway, interface, metric);
    }
    return rows;
}

int prefix_of(const std::string& netmask)
{
    std::array<unsigned, 4> octet{};
    std::sscanf(netmask.c_str(), "%u.%u.%u.%u", &octet[0], &octet[1], &octet[2], &octet[3]);
    int bits = 0;
    for (const unsigned each : octet) bits += std::popcount(each);
    return bits;
}

std::string rows_of_console(const std::string& printed)
{
    std::istringstream lines(printed);
    std::string line, rows;
    for (int head = 0; head < 2; head++) std::getline(lines, line);
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string destination, gateway, netmask, interface;
        int hops = -1;
        words >> destination >> gateway >> netmask >> hops >> interface;
        rows += as_row(destination + "/" + std::to_string(prefix_of(netmask)), gateway, interface, hops);
    }
    return rows;
}

testing::AssertionResult is_kernels(const std::string& printed)
{
    const std::string shown = rows_of_console(printed), kernels = rows_of_kernel();
    if (shown == kernels) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the console shows\n" << shown << "and the kernel has\n" << kernels;
}

bool kernel_has(const std::string& route)
{
    const Deadline deadline(kPatience);
    while (kernel_routes().find(route) == std::string::npos)
        if (deadline.passed()) return false;
    return true;
}

class Session {
public:
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
        EXPECT_EQ(session.run("add ip route 10.20.0.0 255.255.0.0 10.9.0.1 5"),
                  "Destination     Gateway         Genmask         hop    Ifname  Flags\n"
                  "--------------------------------------------------------------------\n"
                  "10.9.0.0        0.0.0.0         255.255.255.252 0      eth1    U\n"
                  "10.20.0.0       10.9.0.1        255.255.0.0     5      eth1    UG\n"
                  "192.168.1.0     0.0.0.0         255.255.255.0   0      eth0    U\n");
        EXPECT_TRUE(is_kernels(session.run("add ip route 172.16.5.9 255.255.255.255 eth0 0")));
        EXPECT_TRUE(is_kernels(session.run("add ip default route 10.9.0.1")));
        EXPECT_NE(session.run("show system ip").find("Default gateway IP address: 10.9.0.1\n"), std::string::npos);
        EXPECT_NE(session.run("show system").find("Gateway IP address:      10.9.0.1\n"), std::string::npos);

        const std::string all = kernel_routes();
        session.service.restart();
        EXPECT_EQ(kernel_routes(), all);
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

        EXPECT_TRUE(is_kernels(session.run("delete ip default route")));
        EXPECT_TRUE(is_kernels(session.run("delete ip route 172.16.5.9 255.255.255.255")));
        session.run("delete ip route 10.20.0.0 255.255.0.0");
        EXPECT_EQ(kernel_routes().find("static"), std::string::npos);
    });
}

TEST(RouteCommands, ARefusalSaysWhyAndChangesNothing)
{
    in_own_network(kDevice, [] {
        const struct {
            const char *command, *printed;
        } kCases[] = {
            {"add ip route 10.0.0.0 255.0.0.0 8.8.8.8 1", "\aThe gateway is not on a network of this device\n"},
            {"add ip route 10.0.0.0 255.0.0.0 10.9.0.2 1", "\aThe gateway is not the address of another device\n"},
            {"add ip route 10.0.0.0 255.0.0.0 10.9.0.3 1", "\aThe gateway is not the address of another device\n"},
            {"add ip route 10.0.0.0 255.0.0.0 0.0.0.0 1", "\aThe gateway is not the address of another device\n"},
            {"add ip route 10.0.0.0 255.0.0.0 eth9 1", "\aThere is no such interface\n"},
            {"add ip route 10.0.0.0 255.0.0.0 eth0eth0eth0eth0eth0 1", "\aThere is no such interface\n"},
            {"add ip route 10.0.0.0 255.0.0.0 wlan0 1", "\aThe interface is switched off\n"},
            {"add ip route 10.0.0.1 255.0.0.0 eth0 1", "\aThe destination has bits that its netmask does not cover\n"},
            {"add ip route 10.0.0.0 255.0.255.0 eth0 1", "\aThe netmask must be ones followed by zeros\n"},
            {"add ip route 10.0.0.0 255.0.0.0 eth0 256", "\aThe hop count is above 255\n"},
            {"add ip route 192.168.1.0 255.255.255.0 eth0 1", "\aThere is already a route to that destination\n"},
            {"delete ip route 192.168.1.0 255.255.255.0", "\aThe route belongs to an interface's own address\n"},
            {"delete ip route 10.0.0.0 255.0.0.0", "\aThere is no route to that destination\n"},
            {"delete ip default route", "\aThere is no route to that destination\n"},
        };
        Session session;
        const std::string before = kernel_routes();
        for (const auto& each : kCases) {
            EXPECT_EQ(session.run(each.command), each.printed) << each.command;
            EXPECT_EQ(kernel_routes(), before) << each.command;
        }
        session.service.restart();
        EXPECT_EQ(kernel_routes(), before);
    });
}

TEST(RouteCommands, RipAndTheTableHaveNoDispatchEntry)
{
    Session session;
    for (const char* line : {"show rip", "show rip eth0", "disable rip eth0", "enable rip1 active",
                             "enable rip2 passive eth0", "show ip routing table"})
        EXPECT_EQ(session.run(line), "Command dispatch entry not found\n") << line;
}

constexpr char kOffsetFile[] = "/tmp/ifStatsOffFile";

TEST(InterfaceCommands, ShowWhatTheKernelHas)
{
    in_own_network(
        kDevice + " && ip link del br0 2>/dev/null; ip neigh add 192.168.1.9 lladdr 02:00:5e:00:00:09 dev eth0", [] {
            std::filesystem::remove(kOffsetFile);
            Session session;
            const std::string list = session.run("show interface");
            for (const char* row : {" eth0  up     ethernet            lan     1500  02-00-5e-00-00-ab  -\n",
                                    " eth1  up     ethernet            wan     1500  02-00-5e-00-00-02  -\n",
                                    " wlan0 down   ethernet(wireless)  wlan    1500  02-00-5e-00-00-10  -\n"})
                EXPECT_NE(list.find(row), std::string::npos) << list;

            const std::string head = session.run("show interface statistics wlan0");
            EXPECT_EQ(head.substr(head.find('\n')), "\n wlan0      0          0          0          0          "
                                                    "0          0         \n");
            shell("bash -c 'for i in 1 2 3; do echo x > /dev/udp/192.168.1.9/9; done'");
            const std::string moved = session.run("show interface statistics");
            EXPECT_NE(moved.find(" eth0       0          0          0          3          0          0         \n"),
                      std::string::npos)
                << moved;
            EXPECT_NE(moved.find(" eth1       3          0 "), std::string::npos) << moved;
            EXPECT_EQ(session.run("show interface statistics eth9"), " no such interface!\n");
            std::filesystem::remove(kOffsetFile);
        });
}
}  // namespace
