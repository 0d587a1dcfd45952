#include <gtest/gtest.h>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "service/fields/routes.h"

namespace {
constexpr std::uint32_t kNetwork = 0x0A140000, kMask16 = 0xFFFF0000, kGateway = 0xC0A801FE;
constexpr char kHead[] = "Destination     Gateway         Genmask         hop    Ifname  Flags\n"
                         "--------------------------------------------------------------------\n";

std::string route_row(std::uint32_t destination, std::uint32_t netmask, std::uint32_t gateway, const char* interface,
                      std::uint32_t hops, std::uint32_t flags)
{
    std::string row(route_entry::kSize, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    route_entry::interface.set(bytes, interface);
    route_entry::destination.set(bytes, destination);
    route_entry::netmask.set(bytes, netmask);
    route_entry::gateway.set(bytes, gateway);
    route_entry::hops.set(bytes, hops);
    route_entry::flags.set(bytes, flags);
    return row;
}

ComParam route_sent(std::uint16_t code, std::uint32_t destination = 0, std::uint32_t netmask = 0,
                    std::uint32_t gateway = 0, const char* interface = "", std::uint32_t hops = 0)
{
    ComParam request = bare_request(code);
    route_request::destination.set(request, destination);
    route_request::netmask.set(request, netmask);
    route_request::gateway.set(request, gateway);
    route_request::interface.set(request, interface);
    route_request::hops.set(request, hops);
    return request;
}

class RouteCommands : public CommandSession {
protected:
    std::string add(const char* gateway, const char* hops)
    {
        std::string typed = gateway;
        return run(CliAddIpRoute,
                   {kNetwork, kMask16, reinterpret_cast<Word>(typed.data()), reinterpret_cast<Word>(hops)});
    }
    // The request before the one for the table.
    static const ComParam& change_sent() { return service_stand_in::requests().end()[-2]; }
};

TEST_F(RouteCommands, TheThirdParameterIsAGatewayOrAnInterface)
{
    struct {
        const char *gateway, *hops;
        ComParam sent;
    } const kCases[] = {
        {"192.168.1.254", "5", route_sent(code::kAddRoute, kNetwork, kMask16, kGateway, "", 5)},
        {"eth1", "x", route_sent(code::kAddRoute, kNetwork, kMask16, 0, "eth1", 0)},
        {"192.168.1", "1x", route_sent(code::kAddRoute, kNetwork, kMask16, 0, "192.168.1", 1)},
        {"thirty-characters-and-no-less", "-1",
         route_sent(code::kAddRoute, kNetwork, kMask16, 0, "thirty-characters-", 0xFFFFFFFF)},
    };
    for (const auto& each : kCases) {
        EXPECT_EQ(add(each.gateway, each.hops), kHead) << each.gateway;
        EXPECT_TRUE(same_record(change_sent(), each.sent)) << each.gateway;
    }
    EXPECT_TRUE(same_record(last_request(), bare_request(code::kReadRoutes)));
}

TEST_F(RouteCommands, TheOthersSendWhatTheyName)
{
    EXPECT_EQ(run(CliAddIpDftRoute, {kGateway}), kHead);
    EXPECT_TRUE(same_record(change_sent(), route_sent(code::kAddRoute, 0, 0, kGateway)));
    EXPECT_EQ(run(CliDelIpRoute, {kNetwork, kMask16}), kHead);
    EXPECT_TRUE(same_record(change_sent(), route_sent(code::kDeleteRoute, kNetwork, kMask16)));
    EXPECT_EQ(run(CliDelIpDftRoute), kHead);
    EXPECT_TRUE(same_record(change_sent(), route_sent(code::kDeleteRoute)));
}

TEST_F(RouteCommands, TheTableFollowsASuccess)
{
    std::string table = route_row(0, 0, kGateway, "eth0", 0, 3);
    table += route_row(kNetwork, kMask16, 0, "fifteen-letters", 255, 0xFFFFFFFF);
    table += route_row(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, "", 0xFFFFFFFF, 0);
    set_table(code::kReadRoutes, table);
    EXPECT_EQ(run(CliDelIpDftRoute),
              std::string(kHead) + "0.0.0.0         192.168.1.254   0.0.0.0         0      eth0    UG\n"
                                   "10.20.0.0       0.0.0.0         255.255.0.0     255    fifteen-letters UGHRDMAC\n"
                                   "255.255.255.255 255.255.255.255 255.255.255.255 -1             \n");
}
}  // namespace
