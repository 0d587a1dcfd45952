#include <string>

#include "configd/area_session.h"
#include "configd/areas/firewall.h"
#include "service/fields/ip_filter.h"
#include "service/fields/nat.h"

namespace {
// The rules are kept in the same storage as everything else.
class Firewall : public AreaSession {
protected:
    Firewall() { service->rules = RuleFile(storage.operations(), "run"); }

    const std::string& file() { return storage.files["run/firewall.nft"]; }
    bool has(const std::string& rule) { return file().find("        " + rule + "\n") != std::string::npos; }

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
    void add_trigger()
    {
        namespace n = nat_trigger_entry;
        add(code::kAddNatTrigger, n::name, "rtsp", n::protocol, kNatTcp, n::port, 554, n::openedProtocol, kNatUdp,
            n::kOpened[0].first, 6970, n::kOpened[0].last, 6999);
    }
    void add_filter()
    {
        namespace f = ip_filter_entry;
        add(code::kAddIpFilter, f::name, "web", f::interface, "eth1", f::direction, f::kOutbound, f::protocol, f::kTcp,
            f::sourceAddress, 0xC0A80100, f::sourceNetmask, 0xFFFFFF00, f::destinationFirst, 80, f::destinationLast,
            90);
    }
    std::uint32_t set_default(std::uint32_t action)
    {
        return ask(code::kWriteIpFilter, ip_filter_record::interface, "eth1", ip_filter_record::action, action);
    }
};

TEST_F(Firewall, RedirectsOnlyWhereNatIsOn)
{
    add_server("one", kNatBoth, 80, 80, 8080, 8080);
    add_server("same", kNatTcp, 100, 110, 100, 110);
    add_server("moved", kNatUdp, 200, 201, 300, 301);
    add_host("cam", 0xCB007109);
    add_host(dmz_entry::kDefault, 0);
    add_trigger();
    EXPECT_EQ(file().find("dnat"), std::string::npos);
    switch_nat(true);
    EXPECT_TRUE(has("iifname \"eth1\" fib daddr type local meta l4proto { tcp, udp } th dport 80 dnat to "
                    "192.168.1.10:8080"));
    EXPECT_TRUE(has("iifname \"eth1\" fib daddr type local tcp dport 100-110 dnat to 192.168.1.10"));
    EXPECT_TRUE(has("iifname \"eth1\" fib daddr type local udp dport 200-201 dnat ip to 192.168.1.10 : udp dport map { "
                    "200 : 300, 201 : 301 }"));
    EXPECT_TRUE(has("oifname \"eth1\" tcp dport 554 update @trigger_1 { meta protocol timeout 10m : ip saddr }"));
    EXPECT_TRUE(has("iifname \"eth1\" fib daddr type local udp dport 6970-6999 dnat to meta protocol map @trigger_1"));
    EXPECT_TRUE(has("iifname \"eth1\" ip daddr 203.0.113.9 dnat to 192.168.1.33"));
    EXPECT_TRUE(has("oifname \"eth1\" ip saddr 192.168.1.33 snat to 203.0.113.9"));
    EXPECT_TRUE(has("oifname \"eth1\" masquerade"));
    const std::string all = "iifname \"eth1\" fib daddr type local dnat to 192.168.1.33";
    EXPECT_TRUE(has(all));
    EXPECT_LT(file().find("dport 200-201"), file().find(all)) << "what takes the rest comes last";

    switch_nat(false);
    EXPECT_EQ(file().find("masquerade"), std::string::npos);
}

TEST_F(Firewall, FiltersDoTheOppositeOfTheDefault)
{
    add_filter();
    const std::string match = "oifname \"eth1\" ip saddr 192.168.1.0/24 ip protocol 6 tcp dport 80-90 ";
    EXPECT_FALSE(has(match + "drop"));
    EXPECT_EQ(set_default(ip_filter_record::kGrant), kStatusOk);
    EXPECT_TRUE(has(match + "drop"));
    EXPECT_FALSE(has("oifname \"eth1\" drop"));
    EXPECT_EQ(set_default(ip_filter_record::kDeny), kStatusOk);
    EXPECT_TRUE(has(match + "accept"));
    EXPECT_TRUE(has("iifname \"eth1\" drop"));
    EXPECT_TRUE(has("oifname \"eth1\" drop"));
    EXPECT_EQ(set_default(ip_filter_record::kDisable), kStatusOk);
    EXPECT_EQ(file().find("eth1"), std::string::npos);
}

// The disk is full at one place after another, in the configuration's file and then in that of the rules.
TEST_F(Firewall, WhatCannotBeHandedOverIsNotKept)
{
    switch_nat(true);
    const std::string rules = file();
    std::uint32_t status = kStatusStorageFull;
    int place = 0;
    while (status != kStatusOk && place < 50) {
        storage.changes = 0;
        storage.failAt = ++place;
        storage.error = ENOSPC;
        status = set_default(ip_filter_record::kDeny);
        ask(code::kReadIpFilter, ip_filter_record::interface, "eth1");
        const bool kept = ip_filter_record::action.get(answer.record) == ip_filter_record::kDeny;
        EXPECT_EQ(kept, status == kStatusOk) << place;
        EXPECT_EQ(file() != rules, status == kStatusOk) << place;
    }
    EXPECT_EQ(status, kStatusOk);
    EXPECT_GT(place, 5);
}

}  // namespace
