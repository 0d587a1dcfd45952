#include <string>

#include "configd/area_session.h"
#include "service/fields/dhcp.h"

namespace {
using namespace dhcp_record;

class DhcpArea : public AreaSession {
protected:
    std::uint32_t add(std::uint32_t address, unsigned char lastOfMac)
    {
        ComParam made = request(code::kAddDhcpStatic);
        dhcp_static_request::address.set(made, address);
        const unsigned char mac[] = {2, 0, 0x5e, 0x10, 0, lastOfMac};
        dhcp_static_request::mac.set(made, mac);
        return ask(made);
    }
    std::uint32_t remove(std::uint32_t address)
    {
        ComParam made = request(code::kDeleteDhcpStatic);
        dhcp_static_request::address.set(made, address);
        return ask(made);
    }
};

struct PoolCase {
    const char* name;
    std::uint32_t lower, upper, netmask, lease, gateway, primary, secondary;
    ServiceStatus status;
};
constexpr std::uint32_t kNet = 0xC0A80200, kClassC = 0xFFFFFF00;
// clang-format off
constexpr PoolCase kPools[] = {
    {"Pool",              kNet + 10,  kNet + 20,   kClassC,    60,     kNet + 1,   0x08080808, 0x01010101, kStatusOk},
    {"LowerAboveUpper",   kNet + 20,  kNet + 10,   kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"TwoNetworks",       kNet + 10,  kNet + 266,  kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"ToTheBroadcast",    kNet + 10,  kNet + 255,  kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"MaskWithHole",      kNet + 10,  kNet + 20,   0xFF00FF00, 60,     0,          0,          0,          kStatusValueRefused},
    {"LeaseTooLong",      kNet + 10,  kNet + 20,   kClassC,    525601, 0,          0,          0,          kStatusValueRefused},
    {"GatewayIsNoHost",   kNet + 10,  kNet + 20,   kClassC,    60,     0x7F000001, 0,          0,          kStatusAddressOutOfRange},
    {"SecondaryIsNoHost", kNet + 10,  kNet + 20,   kClassC,    60,     0,          0,          0xE0000001, kStatusAddressOutOfRange},
};
// clang-format on
TEST_F(DhcpArea, APoolIsTakenOrRefusedAsAWhole)
{
    for (const PoolCase& each : kPools) {
        ASSERT_EQ(ask(code::kClearConfiguration), kStatusOk);
        ComParam made = to_write(code::kReadDhcpServer, code::kWriteDhcpServer);
        const ComParam before = answer.record;
        state.set(made, kDisabled);
        lowerAddress.set(made, each.lower);
        upperAddress.set(made, each.upper);
        netmask.set(made, each.netmask);
        leaseTime.set(made, each.lease);
        gateway.set(made, each.gateway);
        primaryDns.set(made, each.primary);
        secondaryDns.set(made, each.secondary);
        EXPECT_EQ(ask(made), each.status) << each.name;

        ASSERT_EQ(ask(code::kReadDhcpServer), kStatusOk);
        record::code.set(made, code::kReadDhcpServer);
        ComParam wanted = each.status == kStatusOk ? made : before;
        origin_record::revision.set(wanted, origin_record::revision.get(answer.record));
        EXPECT_EQ(std::memcmp(&answer.record, &wanted, sizeof wanted), 0) << each.name;
    }
}

TEST_F(DhcpArea, TheDevicesServerIsHandedTheSettings)
{
    constexpr const char* kFile = "run/dnsmasq.conf";
    service->dhcpRules = RuleFile(storage.operations(), "run", RuleFile::kDhcpName);
    EXPECT_EQ(add(kNet + 7, 7), kStatusOk);
    EXPECT_EQ(storage.files[kFile], "# Made by configd of its settings.\n"
                                    "dhcp-range=192.168.1.100,192.168.1.199,255.255.255.0,1440m\n"
                                    "dhcp-option=option:router,192.168.1.1\n"
                                    "dhcp-host=02:00:5e:10:00:07,192.168.2.7\n");
    ComParam made = to_write(code::kReadDhcpServer, code::kWriteDhcpServer);
    gateway.set(made, 0);
    primaryDns.set(made, 0x08080808);
    secondaryDns.set(made, 0x01010101);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(remove(kNet + 7), kStatusOk);
    EXPECT_EQ(storage.files[kFile], "# Made by configd of its settings.\n"
                                    "dhcp-range=192.168.1.100,192.168.1.199,255.255.255.0,1440m\n"
                                    "dhcp-option=option:dns-server,8.8.8.8,1.1.1.1\n");
    state.set(made, kDisabled);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(storage.files[kFile], "# Made by configd of its settings.\n");

    // The running configuration is written first, by a new file and a rename; then the rules cannot be.
    storage.changes = 0;
    storage.failAt = 5;
    storage.error = ENOSPC;
    state.set(made, kEnabled);
    EXPECT_EQ(ask(made), kStatusStorageFull);
    ask(code::kReadDhcpServer);
    EXPECT_EQ(state.get(answer.record), kDisabled);
}
}  // namespace
