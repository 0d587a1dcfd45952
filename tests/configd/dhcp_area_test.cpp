#include <string>

#include "configd/area_session.h"
#include "service/fields/dhcp.h"

namespace {
using namespace dhcp_record;

using DhcpArea = AreaSession;

constexpr std::uint32_t kNet = 0xC0A80200;

TEST_F(DhcpArea, TheDevicesServerIsHandedTheSettings)
{
    constexpr const char* kFile = "run/dnsmasq.conf";
    service->dhcpRules = RuleFile(storage.operations(), "run", RuleFile::kDhcpName);
    EXPECT_EQ(
        ask(code::kAddDhcpStatic, dhcp_static_request::address, kNet + 7, dhcp_static_request::mac, "\2\0\x5e\x10\0\7"),
        kStatusOk);
    EXPECT_EQ(storage.files[kFile], "# Made by configd of its settings.\n"
                                    "dhcp-range=192.168.1.100,192.168.1.199,255.255.255.0,1440m\n"
                                    "dhcp-option=option:router,192.168.1.1\n"
                                    "dhcp-host=02:00:5e:10:00:07,192.168.2.7\n");
    ComParam made = to_write(code::kReadDhcpServer, code::kWriteDhcpServer, gateway, 0, primaryDns, 0x08080808,
                             secondaryDns, 0x01010101);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(ask(code::kDeleteDhcpStatic, dhcp_static_request::address, kNet + 7), kStatusOk);
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
    EXPECT_TRUE(payload_is_empty()) << "a refusal carries nothing";
    ask(code::kReadDhcpServer);
    EXPECT_EQ(state.get(answer.record), kDisabled);
}
}  // namespace
