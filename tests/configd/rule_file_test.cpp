// What other programs of the device are handed: the packet filter, the DHCP server and the time service.
#include "configd/area_session.h"
#include "configd/areas/firewall.h"
#include "service/fields/dhcp.h"
#include "service/fields/ip_filter.h"
#include "service/fields/nat.h"
#include "service/fields/time.h"

namespace {
constexpr char kPacketFilter[] =
    R"(# NAT and IP filters of the router, written by its configuration service at every change: nft -f loads
# them in the place of those before.
table ip router_manager
delete table ip router_manager
table ip router_manager {
    map trigger_1 { type ether_type : ipv4_addr; flags dynamic, timeout; }
    chain nat_triggers { type filter hook forward priority mangle; policy accept;
        # rtsp
        oifname "eth1" tcp dport 554 update @trigger_1 { meta protocol timeout 10m : ip saddr }
    }
    chain nat_in { type nat hook prerouting priority dstnat; policy accept;
        # one
        iifname "eth1" fib daddr type local meta l4proto { tcp, udp } th dport 80 dnat to 192.168.1.10:8080
        # same
        iifname "eth1" fib daddr type local tcp dport 100-110 dnat to 192.168.1.10
        # moved
        iifname "eth1" fib daddr type local udp dport 200-201 dnat ip to 192.168.1.10 : udp dport map { 200 : 300, 201 : 301 }
        iifname "eth1" fib daddr type local udp dport 6970-6999 dnat to meta protocol map @trigger_1
        # cam
        iifname "eth1" ip daddr 203.0.113.9 dnat to 192.168.1.33
        iifname "eth1" fib daddr type local dnat to 192.168.1.33
    }
    chain nat_out { type nat hook postrouting priority srcnat; policy accept;
        oifname "eth1" ip saddr 192.168.1.33 snat to 203.0.113.9
        oifname "eth1" masquerade
    }
    chain filter_in { type filter hook prerouting priority filter; policy accept;
        ct state established,related accept
        iifname "eth1" drop
    }
    chain filter_out { type filter hook postrouting priority mangle; policy accept;
        ct state established,related accept
        # web
        oifname "eth1" ip saddr 192.168.1.0/24 ip protocol 6 tcp dport 80-90 accept
        oifname "eth1" drop
    }
}
)";

class RuleFiles : public AreaSession {
protected:
    RuleFiles()
    {
        service->rules = RuleFile(storage.operations(), "run");
        service->dhcpRules = RuleFile(storage.operations(), "run", RuleFile::kDhcpName);
        service->timeRules = RuleFile(storage.operations(), "run", RuleFile::kTimeName);
    }

    std::string packet_filter() { return storage.files["run/firewall.nft"]; }
    std::string dhcp_server() { return storage.files["run/dnsmasq.conf"]; }
    std::string time_service() { return storage.files["run/timesyncd.conf"]; }

    void switch_nat(bool on)
    {
        ASSERT_EQ(ask(code::kEnableNat, nat_record::interface, "eth1", nat_record::enabled, on), kStatusOk);
    }
    // What the code carries, field by field.
    template <class... Fields> void add(std::uint16_t code, const Fields&... fields)
    {
        ComParam made = request_of(code);
        unsigned char* entry = carried_entry(made);
        fill(entry, fields...);
        ASSERT_EQ(ask(made), kStatusOk);
    }
    void add_server(const char* name, std::uint8_t protocol, std::uint16_t first, std::uint16_t last,
                    std::uint16_t inside, std::uint16_t insideLast)
    {
        namespace n = nat_server_entry;
        add(code::kAddNatRedirect, n::name, name, n::interface, "eth1", n::protocol, protocol, n::publicFirst, first,
            n::publicLast, last, n::localFirst, inside, n::localLast, insideLast, n::server, 0xC0A8010A);
    }
    void add_host(const char* name, std::uint32_t outside)
    {
        add(code::kAddDmz, dmz_entry::name, name, dmz_entry::interface, "eth1", dmz_entry::natAddress, outside,
            dmz_entry::dmzAddress, 0xC0A80121);
    }
    std::uint32_t set_default(std::uint32_t action)
    {
        return ask(code::kWriteIpFilter, ip_filter_record::interface, "eth1", ip_filter_record::action, action);
    }
};

TEST_F(RuleFiles, OfThePacketFilter)
{
    namespace n = nat_trigger_entry;
    namespace f = ip_filter_entry;
    add_server("one", kNatBoth, 80, 80, 8080, 8080);
    add_server("same", kNatTcp, 100, 110, 100, 110);
    add_server("moved", kNatUdp, 200, 201, 300, 301);
    add_host("cam", 0xCB007109);
    add_host(dmz_entry::kDefault, 0);
    add(code::kAddNatTrigger, n::name, "rtsp", n::protocol, kNatTcp, n::port, 554, n::openedProtocol, kNatUdp,
        n::kOpened[0].first, 6970, n::kOpened[0].last, 6999);
    add(code::kAddIpFilter, f::name, "web", f::interface, "eth1", f::direction, f::kOutbound, f::protocol, f::kTcp,
        f::sourceAddress, 0xC0A80100, f::sourceNetmask, 0xFFFFFF00, f::destinationFirst, 80, f::destinationLast, 90);
    EXPECT_EQ(packet_filter().find("eth1"), std::string::npos) << "neither is switched on";

    switch_nat(true);
    EXPECT_EQ(set_default(ip_filter_record::kDeny), kStatusOk);
    EXPECT_EQ(packet_filter(), kPacketFilter);

    switch_nat(false);
    EXPECT_EQ(set_default(ip_filter_record::kGrant), kStatusOk);
    EXPECT_NE(packet_filter().find("tcp dport 80-90 drop\n    }"), std::string::npos) << packet_filter();
    EXPECT_EQ(set_default(ip_filter_record::kDisable), kStatusOk);
    EXPECT_EQ(packet_filter().find("eth1"), std::string::npos);
}

TEST_F(RuleFiles, OfTheDhcpServer)
{
    using namespace dhcp_record;
    constexpr std::uint32_t kDesk = 0xC0A80207;
    EXPECT_EQ(
        ask(code::kAddDhcpStatic, dhcp_static_request::address, kDesk, dhcp_static_request::mac, "\2\0\x5e\x10\0\7"),
        kStatusOk);
    EXPECT_EQ(dhcp_server(), "# Made by configd of its settings.\n"
                             "dhcp-range=192.168.1.100,192.168.1.199,255.255.255.0,1440m\n"
                             "dhcp-option=option:router,192.168.1.1\n"
                             "dhcp-host=02:00:5e:10:00:07,192.168.2.7\n");
    ComParam made = to_write(code::kReadDhcpServer, code::kWriteDhcpServer, gateway, 0, primaryDns, 0x08080808,
                             secondaryDns, 0x01010101);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(ask(code::kDeleteDhcpStatic, dhcp_static_request::address, kDesk), kStatusOk);
    EXPECT_EQ(dhcp_server(), "# Made by configd of its settings.\n"
                             "dhcp-range=192.168.1.100,192.168.1.199,255.255.255.0,1440m\n"
                             "dhcp-option=option:dns-server,8.8.8.8,1.1.1.1\n");
    state.set(made, kDisabled);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(dhcp_server(), "# Made by configd of its settings.\n");
}

TEST_F(RuleFiles, OfTheTimeService)
{
    using namespace time_record;
    ComParam made = to_write(code::kReadTime, code::kWriteNtpClient, ntpEnabled, 1);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(time_service(), "# Made by configd of its settings.\n[Time]\nPollIntervalMinSec=86400\n"
                              "PollIntervalMaxSec=86400\nNTP=pool.ntp.org\n");
    fill(made, serverByAddress, 1, serverAddress, 0x0A000001);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_TRUE(time_service().ends_with("\nNTP=10.0.0.1\n"));
    ntpEnabled.set(made, 0);
    EXPECT_EQ(ask(made), kStatusOk);
    EXPECT_EQ(time_service(), "# Made by configd of its settings.\n");
}
}  // namespace
