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

    void switch_nat(bool enabled)
    {
        ComParam made = request(code::kEnableNat);
        nat_record::interface.set(made, "eth1");
        nat_record::enabled.set(made, enabled);
        ASSERT_EQ(ask(made), kStatusOk);
    }
    void add_server(const char* name, std::uint8_t protocol, std::uint16_t first, std::uint16_t last,
                    std::uint16_t localFirst, std::uint16_t localLast)
    {
        ComParam made = request(code::kAddNatRedirect);
        unsigned char* entry = carried_entry(made);
        nat_server_entry::name.set(entry, name);
        nat_server_entry::interface.set(entry, "eth1");
        nat_server_entry::protocol.set(entry, protocol);
        nat_server_entry::publicFirst.set(entry, first);
        nat_server_entry::publicLast.set(entry, last);
        nat_server_entry::localFirst.set(entry, localFirst);
        nat_server_entry::localLast.set(entry, localLast);
        nat_server_entry::server.set(entry, 0xC0A8010A);
        ASSERT_EQ(ask(made), kStatusOk);
    }
    void add_host(const char* name, std::uint32_t outside)
    {
        ComParam made = request(code::kAddDmz);
        dmz_entry::name.set(carried_entry(made), name);
        dmz_entry::interface.set(carried_entry(made), "eth1");
        dmz_entry::natAddress.set(carried_entry(made), outside);
        dmz_entry::dmzAddress.set(carried_entry(made), 0xC0A80121);
        ASSERT_EQ(ask(made), kStatusOk);
    }
    void add_trigger()
    {
        ComParam made = request(code::kAddNatTrigger);
        unsigned char* entry = carried_entry(made);
        nat_trigger_entry::name.set(entry, "rtsp");
        nat_trigger_entry::protocol.set(entry, kNatTcp);
        nat_trigger_entry::port.set(entry, 554);
        nat_trigger_entry::openedProtocol.set(entry, kNatUdp);
        nat_trigger_entry::kOpened[0].first.set(entry, 6970);
        nat_trigger_entry::kOpened[0].last.set(entry, 6999);
        ASSERT_EQ(ask(made), kStatusOk);
    }
    ComParam filter(const char* interface = "eth1", std::uint8_t protocol = ip_filter_entry::kTcp)
    {
        using namespace ip_filter_entry;
        ComParam made = request(code::kAddIpFilter);
        unsigned char* entry = carried_entry(made);
        name.set(entry, "web");
        ip_filter_entry::interface.set(entry, interface);
        direction.set(entry, kOutbound);
        ip_filter_entry::protocol.set(entry, protocol);
        sourceAddress.set(entry, 0xC0A80100);
        sourceNetmask.set(entry, 0xFFFFFF00);
        destinationFirst.set(entry, 80);
        destinationLast.set(entry, 90);
        return made;
    }
    std::uint32_t set_default(const char* interface, std::uint32_t action)
    {
        ComParam made = request(code::kWriteIpFilter);
        ip_filter_record::interface.set(made, interface);
        ip_filter_record::action.set(made, action);
        return ask(made);
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
    ASSERT_EQ(ask(filter()), kStatusOk);
    const std::string match = "oifname \"eth1\" ip saddr 192.168.1.0/24 ip protocol 6 tcp dport 80-90 ";
    EXPECT_FALSE(has(match + "drop"));
    EXPECT_EQ(set_default("eth1", ip_filter_record::kGrant), kStatusOk);
    EXPECT_TRUE(has(match + "drop"));
    EXPECT_FALSE(has("oifname \"eth1\" drop"));
    EXPECT_EQ(set_default("eth1", ip_filter_record::kDeny), kStatusOk);
    EXPECT_TRUE(has(match + "accept"));
    EXPECT_TRUE(has("iifname \"eth1\" drop"));
    EXPECT_TRUE(has("oifname \"eth1\" drop"));
    EXPECT_EQ(set_default("eth1", ip_filter_record::kDisable), kStatusOk);
    EXPECT_EQ(file().find("eth1"), std::string::npos);
}

TEST_F(Firewall, RefusesFiltersThatCannotBe)
{
    using namespace ip_filter_entry;
    EXPECT_EQ(ask(filter("eth9")), kStatusUnknownInterface);
    EXPECT_EQ(ask(filter("eth1", kIcmp)), kStatusValueRefused) << "it has no ports";
    EXPECT_EQ(ask(filter("eth1", 99)), kStatusValueRefused);
    ComParam outside = filter();
    sourceAddress.set(carried_entry(outside), 0xC0A80105);
    EXPECT_EQ(ask(outside), kStatusValueRefused);
    ComParam backwards = filter();
    destinationLast.set(carried_entry(backwards), 79);
    EXPECT_EQ(ask(backwards), kStatusValueRefused);
    EXPECT_EQ(set_default("eth9", ip_filter_record::kDeny), kStatusUnknownInterface);
    EXPECT_EQ(set_default("eth1", 3), kStatusValueRefused);

    EXPECT_EQ(ask(filter()), kStatusOk);
    EXPECT_EQ(ask(filter()), kStatusDuplicateName);
    ComParam gone = filter();
    record::code.set(gone, code::kDeleteIpFilter);
    EXPECT_EQ(ask(gone), kStatusOk);
    EXPECT_EQ(ask(gone), kStatusUnknownName);
}

// The disk is full at one place after another, in the configuration's file and then in that of the rules.
TEST_F(Firewall, WhatCannotBeHandedOverIsNotKept)
{
    switch_nat(true);
    const std::string rules = file();
    ComParam read = request(code::kReadIpFilter);
    ip_filter_record::interface.set(read, "eth1");
    std::uint32_t status = kStatusStorageFull;
    int place = 0;
    while (status != kStatusOk && place < 50) {
        storage.changes = 0;
        storage.failAt = ++place;
        storage.error = ENOSPC;
        status = set_default("eth1", ip_filter_record::kDeny);
        ask(read);
        const bool kept = ip_filter_record::action.get(answer.record) == ip_filter_record::kDeny;
        EXPECT_EQ(kept, status == kStatusOk) << place;
        EXPECT_EQ(file() != rules, status == kStatusOk) << place;
    }
    EXPECT_EQ(status, kStatusOk);
    EXPECT_GT(place, 5);
}

}  // namespace
