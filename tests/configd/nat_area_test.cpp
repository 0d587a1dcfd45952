#include <string>

#include "configd/area_session.h"
#include "configd/areas/firewall.h"
#include "service/fields/nat.h"

namespace {
constexpr std::uint32_t kHost = 0xC0A8010A;  // 192.168.1.10, in the factory LAN

class NatArea : public AreaSession {
protected:
    static ComParam dmz(const char* name, const char* interface = "eth1", std::uint32_t outside = 0,
                        std::uint32_t host = kHost)
    {
        ComParam made = request(code::kAddDmz);
        dmz_entry::name.set(carried_entry(made), name);
        dmz_entry::interface.set(carried_entry(made), interface);
        dmz_entry::natAddress.set(carried_entry(made), outside);
        dmz_entry::dmzAddress.set(carried_entry(made), host);
        return made;
    }
    struct Ports {
        std::uint16_t first, last;
    };
    static ComParam server(const char* name, Ports outside, Ports inside, std::uint8_t protocol = kNatTcp)
    {
        using namespace nat_server_entry;
        ComParam made = request(code::kAddNatRedirect);
        unsigned char* entry = carried_entry(made);
        nat_server_entry::name.set(entry, name);
        interface.set(entry, "eth1");
        nat_server_entry::protocol.set(entry, protocol);
        publicFirst.set(entry, outside.first);
        publicLast.set(entry, outside.last);
        localFirst.set(entry, inside.first);
        localLast.set(entry, inside.last);
        nat_server_entry::server.set(entry, kHost);
        return made;
    }
    static ComParam trigger(const char* name, std::initializer_list<Ports> opened)
    {
        using namespace nat_trigger_entry;
        ComParam made = request(code::kAddNatTrigger);
        unsigned char* entry = carried_entry(made);
        nat_trigger_entry::name.set(entry, name);
        protocol.set(entry, kNatTcp);
        port.set(entry, 554);
        openedProtocol.set(entry, kNatBoth);
        std::size_t used = 0;
        for (const Ports& ports : opened) {
            kOpened[used].first.set(entry, ports.first);
            kOpened[used++].last.set(entry, ports.last);
        }
        return made;
    }
    static ComParam by_name(std::uint16_t code, const char* name)
    {
        ComParam made = request(code);
        nat_server_entry::name.set(carried_entry(made), name);
        return made;
    }
    std::uint32_t enable(const char* interface, std::uint32_t enabled)
    {
        ComParam made = request(code::kEnableNat);
        nat_record::interface.set(made, interface);
        nat_record::enabled.set(made, enabled);
        return ask(made);
    }
    std::size_t rows(std::uint16_t code, std::size_t size) { return ask(code), answer.table.size() / size; }
};

TEST_F(NatArea, TranslatesOnWanInterfacesOnly)
{
    machine.interfaces = {interface_named("eth1", 2, 0x0A000005)};
    EXPECT_EQ(enable("eth1", 1), kStatusOk);
    EXPECT_EQ(enable("eth1", 1), kStatusOk);
    EXPECT_EQ(enable("eth1", 2), kStatusValueRefused);
    for (const char* other : {"eth0", "", "eth9"}) EXPECT_EQ(enable(other, 1), kStatusUnknownInterface) << other;

    start();
    ASSERT_EQ(rows(code::kReadNat, nat_entry::kSize), 1u);
    EXPECT_EQ(nat_entry::enabled.get(answer.table.data()), 1u);
    EXPECT_EQ(nat_entry::address.get(answer.table.data()), 0x0A000005u);
    EXPECT_STREQ(nat_record::lanInterface.get(answer.record), "eth0");
    EXPECT_EQ(nat_record::lanAddress.get(answer.record), 0xC0A80101u);
    EXPECT_EQ(enable("eth1", 0), kStatusOk);
    rows(code::kReadNat, nat_entry::kSize);
    EXPECT_EQ(nat_entry::enabled.get(answer.table.data()), 0u);
}

TEST_F(NatArea, AnInterfaceHasOneDefaultHost)
{
    EXPECT_EQ(ask(dmz(dmz_entry::kDefault)), kStatusOk);
    EXPECT_EQ(ask(dmz(dmz_entry::kDefault, "eth1", 0, kHost + 1)), kStatusOk);
    EXPECT_EQ(ask(dmz("cam", "eth1", 0xCB007109)), kStatusOk);
    start();
    ASSERT_EQ(rows(code::kReadDmz, dmz_entry::kSize), 2u);
    EXPECT_STREQ(dmz_entry::name.get(answer.table.data()), dmz_entry::kDefault);
    EXPECT_EQ(dmz_entry::dmzAddress.get(answer.table.data()), kHost + 1);
    EXPECT_STREQ(dmz_entry::name.get(answer.table.data() + dmz_entry::kSize), "cam");

    ComParam gone = dmz(dmz_entry::kDefault);
    record::code.set(gone, code::kDeleteDmz);
    EXPECT_EQ(ask(gone), kStatusOk);
    EXPECT_EQ(ask(gone), kStatusUnknownName);
    EXPECT_EQ(ask(by_name(code::kDeleteDmz, "cam")), kStatusOk);
    EXPECT_EQ(ask(by_name(code::kDeleteDmz, "cam")), kStatusUnknownName);
    EXPECT_EQ(rows(code::kReadDmz, dmz_entry::kSize), 0u);
}

struct Refused {
    const char* name;
    ComParam request;
    ServiceStatus status;
};

TEST_F(NatArea, RefusesWhatCannotBe)
{
    ASSERT_EQ(ask(dmz("cam", "eth1", 0xCB007109)), kStatusOk);
    ASSERT_EQ(ask(server("web", {80, 89}, {80, 89})), kStatusOk);
    ASSERT_EQ(ask(trigger("rtsp", {{6970, 6999}})), kStatusOk);
    // clang-format off
    const Refused cases[] = {
        {"HostName",         dmz("cam", "eth1", 0xCB00710A),                      kStatusDuplicateName},
        {"HostAddress",      dmz("other", "eth1", 0xCB007109),                    kStatusDuplicateAddress},
        {"HostWithoutName",  dmz("", "eth1", 0xCB00710B),                         kStatusValueRefused},
        {"HostOnLan",        dmz("lan", "eth0", 0xCB00710B),                      kStatusUnknownInterface},
        {"HostMulticast",    dmz("mc", "eth1", 0xE0000001),                       kStatusValueRefused},
        {"HostOutside",      dmz("far", "eth1", 0xCB00710B, 0x0A000001),          kStatusAddressOutOfRange},
        {"HostIsRouter",     dmz("self", "eth1", 0xCB00710B, 0xC0A80101),         kStatusAddressOutOfRange},
        {"HostIsBroadcast",  dmz("all", "eth1", 0xCB00710B, 0xC0A801FF),          kStatusAddressOutOfRange},
        {"DefaultOutside",   dmz(dmz_entry::kDefault, "eth1", 0, 0x0A000001),     kStatusAddressOutOfRange},
        {"ServerName",       server("web", {8080, 8080}, {80, 80}),               kStatusDuplicateName},
        {"NameOfTrigger",    server("rtsp", {8080, 8080}, {80, 80}),              kStatusDuplicateName},
        {"NameOfServer",     trigger("web", {{1, 2}}),                            kStatusDuplicateName},
        {"PortsOverlap",     server("w2", {89, 99}, {89, 99}, kNatBoth),          kStatusPortsTaken},
        {"OtherProtocol",    server("w3", {80, 80}, {80, 80}, kNatUdp),           kStatusOk},
        {"PortZero",         server("p", {0, 0}, {80, 80}),                       kStatusValueRefused},
        {"RangeBackwards",   server("p", {200, 199}, {200, 199}),                 kStatusValueRefused},
        {"OtherLength",      server("p", {200, 209}, {300, 308}),                 kStatusValueRefused},
        {"ToOnePort",        server("p1", {200, 209}, {300, 300}),                kStatusOk},
        {"MovedTooLong",     server("p", {1000, 2024}, {3000, 4024}),             kStatusValueRefused},
        {"MovedAtLimit",     server("p2", {1000, 2023}, {3000, 4023}),            kStatusOk},
        {"NoProtocol",       server("p", {300, 300}, {300, 300}, 0),              kStatusValueRefused},
        {"NothingOpened",    trigger("t", {}),                                    kStatusValueRefused},
        {"GapInRanges",      trigger("t", {{1, 2}, {0, 0}, {3, 4}}),              kStatusValueRefused},
        {"OpenedBackwards",  trigger("t", {{1, 2}, {9, 8}}),                      kStatusValueRefused},
        {"HalfARange",       trigger("t", {{1, 2}, {0, 8}}),                      kStatusValueRefused},
        {"UnknownServer",    by_name(code::kDeleteNatRedirect, "rtsp"),           kStatusUnknownName},
        {"UnknownTrigger",   by_name(code::kDeleteNatTrigger, "web"),             kStatusUnknownName},
    };
    // clang-format on
    for (const Refused& each : cases) {
        const std::string before = service->store.running().text();
        EXPECT_EQ(ask(each.request), each.status) << each.name;
        EXPECT_EQ(service->store.running().text() == before, each.status != kStatusOk) << each.name;
    }
}

TEST_F(NatArea, TablesHaveTheirSizes)
{
    std::uint32_t status = kStatusOk;
    std::uint16_t added = 0;
    while (status == kStatusOk && added < 1000) {
        added++;
        status = ask(server(("s" + std::to_string(added)).c_str(), {added, added}, {added, added}));
    }
    EXPECT_EQ(status, kStatusTableFull);
    EXPECT_EQ(rows(code::kReadNatRedirect, nat_server_entry::kSize), added - 1u);
    EXPECT_EQ(ask(by_name(code::kDeleteNatRedirect, "s7")), kStatusOk);
    EXPECT_EQ(ask(server("again", {7, 7}, {7, 7})), kStatusOk);
}

TEST_F(NatArea, AStoredRangeIsCheckedToo)
{
    ASSERT_EQ(ask(server("web", {80, 89}, {80, 89})), kStatusOk);
    std::string& stored = storage.files["run/running.json"];
    const std::size_t at = stored.find("\"public_last\": 89");
    ASSERT_NE(at, stored.npos);
    stored.replace(at, 17, "\"public_last\": 79");
    start();
    EXPECT_EQ(rows(code::kReadNatRedirect, nat_server_entry::kSize), 0u);
    EXPECT_TRUE(storage.files.contains("run/running.rejected-1.json"));
}
}  // namespace
