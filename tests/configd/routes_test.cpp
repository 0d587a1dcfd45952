#include "configd/area_session.h"
#include "configd/areas/routes.h"
#include "service/fields/routes.h"

namespace {
constexpr std::uint32_t kNetwork = 0x0A140000, kMask16 = 0xFFFF0000, kRouter = 0x0A090001;

device::Route to(std::uint32_t destination, std::uint32_t netmask, std::uint32_t gateway, const char* interface = "",
                 std::uint32_t hops = 0)
{
    device::Route route{.destination = destination, .netmask = netmask, .gateway = gateway, .metric = hops};
    std::strncpy(route.interface, interface, sizeof route.interface - 1);
    return route;
}
const device::Route kFar = to(kNetwork, kMask16, kRouter, "", 5), kDefault = to(0, 0, kRouter);

class Routes : public AreaSession {
protected:
    Routes()
    {
        machine.interfaces = {interface_named("eth0", 1), interface_named("eth1", 2, 0x0A090002)};
        machine.routes = {to(0x0A090000, 0xFFFFFFFC, 0, "eth1")};
        machine.routes[0].connected = true;
        restart_service();
    }
    void restart_service()
    {
        start();
        restore_routes(*service);
    }

    std::uint32_t send(std::uint16_t code, const device::Route& route)
    {
        using namespace route_request;
        return ask(code, destination, route.destination, netmask, route.netmask, gateway, route.gateway, interface,
                   route.interface, hops, route.metric);
    }
    std::uint32_t add(const device::Route& route) { return send(code::kAddRoute, route); }
    std::uint32_t remove(const device::Route& route) { return send(code::kDeleteRoute, route); }

    // The table as the console gets it: destination/hops/flags of each row.
    std::string table()
    {
        EXPECT_EQ(ask(code::kReadRoutes), kStatusOk);
        std::string rows;
        for (std::size_t at = 0; at < answer.table.size(); at += route_entry::kSize) {
            const unsigned char* entry = answer.table.data() + at;
            char row[64];
            std::snprintf(row, sizeof row, "%x/%u/%u ", route_entry::destination.get(entry),
                          route_entry::hops.get(entry), route_entry::flags.get(entry));
            rows += row;
        }
        return rows;
    }
};

TEST_F(Routes, AddedOnesAreInTheKernelAndSurviveARestart)
{
    EXPECT_EQ(add(kFar), kStatusOk);
    EXPECT_EQ(add(kDefault), kStatusOk);
    EXPECT_EQ(table(), "a090000/0/0 a140000/5/1 0/0/1 ");

    machine.routes.resize(1);  // as after a restart of the machine
    EXPECT_EQ(table(), "a090000/0/0 a140000/5/0 0/0/0 ") << "set, but not up";
    restart_service();
    EXPECT_EQ(table(), "a090000/0/0 a140000/5/1 0/0/1 ");
    restart_service();
    EXPECT_EQ(machine.routes.size(), 3u) << "what is there is not added again";

    EXPECT_EQ(remove(kFar), kStatusOk);
    EXPECT_EQ(remove(kDefault), kStatusOk);
    EXPECT_EQ(machine.routes.size(), 1u);
    restart_service();
    EXPECT_EQ(table(), "a090000/0/0 ");
}

TEST_F(Routes, WhatCannotBeKeptDoesNotStayInTheKernel)
{
    ASSERT_EQ(add(kFar), kStatusOk);
    storage.readOnly = true;
    EXPECT_EQ(add(kDefault), kStatusStorageReadOnly);
    EXPECT_EQ(remove(kFar), kStatusStorageReadOnly);
    EXPECT_EQ(table(), "a090000/0/0 a140000/5/1 ");
    storage.readOnly = false;

    machine.error = EPERM;
    EXPECT_EQ(remove(kFar), kStatusNotPermitted);
    EXPECT_EQ(table(), "a090000/0/0 a140000/5/1 ");
}

TEST_F(Routes, OfOthersAreDeletedButNotAnAddressesOwn)
{
    machine.routes.push_back(to(0, 0, kRouter, "eth1", 100));  // a DHCP client's
    EXPECT_EQ(add(kDefault), kStatusDuplicateAddress);
    EXPECT_EQ(remove(kDefault), kStatusOk);
    EXPECT_EQ(table(), "a090000/0/0 ");
    EXPECT_EQ(remove(kDefault), kStatusUnknownAddress);
    EXPECT_EQ(remove(to(0x0A090000, 0xFFFFFFFC, 0)), kStatusConnectedRoute);
    EXPECT_EQ(remove(to(0x0A090000, 0xFFFFFF00, 0)), kStatusUnknownAddress);
}

TEST_F(Routes, FollowTheConfiguration)
{
    ASSERT_EQ(add(kFar), kStatusOk);
    ASSERT_EQ(ask(code::kSaveConfiguration), kStatusOk);
    ASSERT_EQ(remove(kFar), kStatusOk);
    ASSERT_EQ(add(kDefault), kStatusOk);
    machine.routes.push_back(to(0x0C000000, 0xFF000000, kRouter));  // nobody's business
    EXPECT_EQ(ask(code::kRestart), kStatusOk);
    EXPECT_EQ(table(), "a090000/0/0 c000000/0/0 a140000/5/1 ");

    EXPECT_EQ(ask(code::kClearConfiguration), kStatusOk);
    EXPECT_EQ(table(), "a090000/0/0 c000000/0/0 ");
}
}  // namespace
