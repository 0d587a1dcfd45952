#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/routes.h"

namespace {
using namespace route_request;

constexpr std::uint32_t kNetwork = 0x0A140000, kMask16 = 0xFFFF0000, kGateway = 0xC0A801FE;
constexpr char kHead[] = "Destination     Gateway         Genmask         hop    Ifname  Flags\n"
                         "--------------------------------------------------------------------\n";

std::string route_row(std::uint32_t to, std::uint32_t mask, std::uint32_t router, const char* name,
                      std::uint32_t metric, std::uint32_t flags)
{
    return row_of<route_entry::kSize>(route_entry::interface, name, route_entry::destination, to, route_entry::netmask,
                                      mask, route_entry::gateway, router, route_entry::hops, metric, route_entry::flags,
                                      flags);
}

using RouteCommands = CommandSession;

TEST_F(RouteCommands, SendWhatTheyName)
{
    struct {
        Action command;
        std::initializer_list<Word> words;
        ComParam wanted;
    } const kCases[] = {
        {CliAddIpRoute,
         {kNetwork, kMask16, text("192.168.1.254"), text("5")},
         request_of(code::kAddRoute, destination, kNetwork, netmask, kMask16, gateway, kGateway, hops, 5)},
        {CliAddIpRoute,
         {kNetwork, kMask16, text("eth1"), text("x")},
         request_of(code::kAddRoute, destination, kNetwork, netmask, kMask16, interface, "eth1")},
        {CliAddIpRoute,
         {kNetwork, kMask16, text("thirty-characters-and-no-less"), text("-1")},
         request_of(code::kAddRoute, destination, kNetwork, netmask, kMask16, interface, "thirty-characters-", hops,
                    0xFFFFFFFF)},
        {CliAddIpDftRoute, {kGateway}, request_of(code::kAddRoute, gateway, kGateway)},
        {CliDelIpRoute, {kNetwork, kMask16}, request_of(code::kDeleteRoute, destination, kNetwork, netmask, kMask16)},
        {CliDelIpDftRoute, {}, request_of(code::kDeleteRoute)},
    };
    for (const auto& each : kCases) {
        EXPECT_EQ(run(each.command, each.words), kHead);
        EXPECT_TRUE(was_sent(each.wanted)) << &each - kCases;
        EXPECT_TRUE(same_record(last_request(), request_of(code::kReadRoutes)));
    }
}

TEST_F(RouteCommands, TheTableFollowsASuccess)
{
    set_table(code::kReadRoutes, route_row(0, 0, kGateway, "eth0", 0, 3) +
                                     route_row(kNetwork, kMask16, 0, "fifteen-letters", 255, 0xFFFFFFFF) +
                                     route_row(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, "", 0xFFFFFFFF, 0));
    EXPECT_EQ(run(CliDelIpDftRoute),
              std::string(kHead) + "0.0.0.0         192.168.1.254   0.0.0.0         0      eth0    UG\n"
                                   "10.20.0.0       0.0.0.0         255.255.0.0     255    fifteen-letters UGHRDMAC\n"
                                   "255.255.255.255 255.255.255.255 255.255.255.255 -1             \n");
}
}  // namespace
