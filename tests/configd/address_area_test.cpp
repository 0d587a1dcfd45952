#include <string>

#include "configd/area_session.h"
#include "service/fields/address.h"
#include "service/fields/system.h"

namespace {
using namespace address_record;

constexpr std::uint32_t kNet = 0x0A000000, kClassC = 0xFFFFFF00;

class AddressArea : public AreaSession {
protected:
    std::uint32_t set_lan(std::uint32_t own, std::uint32_t mask, std::uint32_t router = 0, std::uint32_t server = 0)
    {
        return ask(code::kWriteAddress, interface, "lan", mode, kStatic, address, own, netmask, mask, gateway, router,
                   primaryDns, server);
    }
    void manage_machine()
    {
        profile.manageAddresses = true;
        start();
    }
    std::uint32_t system_address() { return ask(code::kReadSystem), system_record::lanAddress.get(answer.record); }
};

TEST_F(AddressArea, TheMachineGetsAddressRouterAndNameServer)
{
    machine.nameServers = {0x09090909, 0x01010101};
    manage_machine();
    EXPECT_EQ(set_lan(kNet + 2, kClassC, kNet + 1, 0x08080808), kStatusOk);
    EXPECT_EQ(machine.addressSet, kNet + 2);
    ASSERT_EQ(machine.routes.size(), 1u);
    EXPECT_EQ(machine.routes[0].gateway, kNet + 1);
    EXPECT_STREQ(machine.routes[0].interface, "eth0");
    EXPECT_EQ(machine.nameServers, (std::array<std::uint32_t, 2>{0x08080808, 0x09090909}));

    EXPECT_EQ(set_lan(kNet + 3, kClassC, kNet + 254, 0x08080808), kStatusOk);
    ASSERT_EQ(machine.routes.size(), 1u);
    EXPECT_EQ(machine.routes[0].gateway, kNet + 254);
    EXPECT_EQ(set_lan(kNet + 3, kClassC), kStatusOk);
    EXPECT_TRUE(machine.routes.empty());
    EXPECT_EQ(machine.nameServers, (std::array<std::uint32_t, 2>{0x09090909, 0})) << "what was set here is gone";
    EXPECT_EQ(set_lan(kNet + 3, kClassC, kNet + 3), kStatusOk);
    EXPECT_TRUE(machine.routes.empty()) << "no route through itself";

    machine.routes.push_back({.gateway = 0x0A090001, .interface = "eth1"});
    EXPECT_EQ(set_lan(kNet + 3, kClassC, kNet + 1, 0x04040404), kStatusOk);
    EXPECT_EQ(machine.routes.size(), 1u) << "the WAN side's default route stays";
    EXPECT_EQ(machine.nameServers, (std::array<std::uint32_t, 2>{0x04040404, 0x09090909}));
}

TEST_F(AddressArea, WhatTheMachineRefusesIsNotKept)
{
    manage_machine();
    EXPECT_EQ(set_lan(kNet + 2, kClassC), kStatusOk);
    machine.error = EPERM;
    EXPECT_EQ(set_lan(kNet + 3, kClassC), kStatusNotPermitted);
    EXPECT_EQ(system_address(), kNet + 2);

    // The address is taken and the router is not: the address goes back as well.
    machine.error = 0;
    machine.routeError = ENETUNREACH;
    EXPECT_EQ(set_lan(kNet + 4, kClassC, kNet + 1), kStatusUnreachableGateway);
    EXPECT_EQ(system_address(), kNet + 2);
    EXPECT_EQ(machine.addressSet, kNet + 2);
}
}  // namespace
