#include <string>

#include "configd/area_session.h"
#include "service/fields/dhcp.h"

namespace {
using namespace dhcp_record;

constexpr unsigned kCapacity = 64;

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
    {"OneAddress",        kNet + 10,  kNet + 10,   kClassC,    1,      0,          0,          0,          kStatusOk},
    {"LongestLease",      kNet + 10,  kNet + 20,   kClassC,    525600, 0,          0,          0,          kStatusOk},
    {"WideNetwork",       0x0A000001, 0x0AFFFFFE,  0xFF000000, 60,     0,          0,          0,          kStatusOk},
    {"LowerAboveUpper",   kNet + 20,  kNet + 10,   kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"TwoNetworks",       kNet + 10,  kNet + 266,  kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"FromTheNetwork",    kNet,       kNet + 20,   kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"ToTheBroadcast",    kNet + 10,  kNet + 255,  kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"Multicast",         0xE0000001, 0xE0000002,  kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"NoAddresses",       0,          0,           kClassC,    60,     0,          0,          0,          kStatusPoolRefused},
    {"MaskWithHole",      kNet + 10,  kNet + 20,   0xFF00FF00, 60,     0,          0,          0,          kStatusValueRefused},
    {"NoLease",           kNet + 10,  kNet + 20,   kClassC,    0,      0,          0,          0,          kStatusValueRefused},
    {"LeaseTooLong",      kNet + 10,  kNet + 20,   kClassC,    525601, 0,          0,          0,          kStatusValueRefused},
    {"GatewayIsNoHost",   kNet + 10,  kNet + 20,   kClassC,    60,     0x7F000001, 0,          0,          kStatusAddressOutOfRange},
    {"PrimaryIsNoHost",   kNet + 10,  kNet + 20,   kClassC,    60,     0,          0xFFFFFFFF, 0,          kStatusAddressOutOfRange},
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
        const ComParam& wanted = each.status == kStatusOk ? made : before;
        EXPECT_EQ(std::memcmp(&answer.record, &wanted, sizeof wanted), 0) << each.name;
    }
}

TEST_F(DhcpArea, TheFactoryPoolLiesInTheFactoryLan)
{
    ASSERT_EQ(ask(code::kReadDhcpServer), kStatusOk);
    EXPECT_EQ(state.get(answer.record), kEnabled);
    EXPECT_EQ(lowerAddress.get(answer.record), 0xC0A80164u);
    EXPECT_EQ(upperAddress.get(answer.record), 0xC0A801C7u);
    EXPECT_EQ(gateway.get(answer.record), 0xC0A80101u);
    EXPECT_EQ(primaryDns.get(answer.record), 0u);
}

TEST_F(DhcpArea, ReservedAddressesAreAddedAndDeletedByAddress)
{
    EXPECT_EQ(ask(code::kReadDhcpStatic), kStatusOk);
    EXPECT_EQ(dhcp_table_record::count.get(answer.record), 0);
    EXPECT_TRUE(answer.table.empty());

    EXPECT_EQ(add(kNet + 1, 1), kStatusOk);
    EXPECT_EQ(add(kNet + 1, 2), kStatusDuplicateAddress);
    EXPECT_EQ(add(kNet + 2, 1), kStatusDuplicateAddress) << "one MAC address has one address";
    EXPECT_EQ(add(0x7F000001, 3), kStatusValueRefused);
    EXPECT_EQ(add(0, 3), kStatusValueRefused);
    EXPECT_EQ(add(kNet + 2, 2), kStatusOk);
    EXPECT_EQ(remove(kNet + 3), kStatusUnknownAddress);
    EXPECT_EQ(remove(kNet + 1), kStatusOk);
    EXPECT_EQ(remove(kNet + 1), kStatusUnknownAddress);

    start();
    ASSERT_EQ(ask(code::kReadDhcpStatic), kStatusOk);
    EXPECT_EQ(dhcp_table_record::count.get(answer.record), 1);
    ASSERT_EQ(answer.table.size(), dhcp_entry::kSize);
    EXPECT_EQ(dhcp_entry::address.get(answer.table.data()), kNet + 2);
    EXPECT_EQ(dhcp_entry::mac.get(answer.table.data())[5], 2);
}

TEST_F(DhcpArea, TheTableOfReservedAddressesHasAnEnd)
{
    for (unsigned i = 1; i <= kCapacity; i++) ASSERT_EQ(add(kNet + i, static_cast<unsigned char>(i)), kStatusOk) << i;
    EXPECT_EQ(add(kNet + kCapacity + 1, kCapacity + 1), kStatusTableFull);
    EXPECT_EQ(add(kNet + 1, 1), kStatusDuplicateAddress);
    EXPECT_EQ(remove(kNet + 9), kStatusOk);
    EXPECT_EQ(add(kNet + kCapacity + 1, kCapacity + 1), kStatusOk);
}

TEST_F(DhcpArea, LeasesComeFromTheServersFile)
{
    machine.leases = {{.expires = 1234, .mac = {2, 0, 0x5e, 0x10, 0, 1}, .address = kNet + 1, .hostName = "laptop"},
                      {.expires = 0, .mac = {2, 0, 0x5e, 0x10, 0, 2}, .address = kNet + 3, .hostName = ""}};
    EXPECT_EQ(ask(code::kReadLeases), kStatusOk);
    EXPECT_TRUE(answer.table.empty()) << "the profile names no file";

    profile.leases = "leases";
    start();
    add(kNet + 1, 1);
    add(kNet + 2, 2);  // reserved, but the client has another address
    ASSERT_EQ(ask(code::kReadLeases), kStatusOk);
    EXPECT_EQ(dhcp_table_record::count.get(answer.record), 2);
    ASSERT_EQ(answer.table.size(), 2 * dhcp_entry::kSize);
    unsigned char *first = answer.table.data(), *second = first + dhcp_entry::kSize;
    EXPECT_EQ(dhcp_entry::address.get(first), kNet + 1);
    EXPECT_EQ(dhcp_entry::mac.get(first)[5], 1);
    EXPECT_STREQ(dhcp_entry::hostName.get(first), "laptop");
    EXPECT_EQ(dhcp_entry::flags.get(first), dhcp_entry::kStatic);
    EXPECT_EQ(dhcp_entry::expiry.get(first), 1234u);
    EXPECT_EQ(dhcp_entry::flags.get(second), 0);

    machine.leases.clear();
    machine.leaseError = ENOENT;
    EXPECT_EQ(ask(code::kReadLeases), kStatusOk);
    machine.leaseError = EACCES;
    EXPECT_EQ(ask(code::kReadLeases), kStatusNotPermitted);
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
