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
    std::size_t rows(std::uint16_t code, std::size_t size) { return ask(code), answer.table.size() / size; }
};

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
        {"HostOutside",      dmz("far", "eth1", 0xCB00710B, 0x0A000001),          kStatusAddressOutOfRange},
        {"HostIsRouter",     dmz("self", "eth1", 0xCB00710B, 0xC0A80101),         kStatusAddressOutOfRange},
        {"NameOfServer",     trigger("web", {{1, 2}}),                            kStatusDuplicateName},
        {"PortsOverlap",     server("w2", {89, 99}, {89, 99}, kNatBoth),          kStatusPortsTaken},
        {"OtherProtocol",    server("w3", {80, 80}, {80, 80}, kNatUdp),           kStatusOk},
        {"RangeBackwards",   server("p", {200, 199}, {200, 199}),                 kStatusValueRefused},
        {"OtherLength",      server("p", {200, 209}, {300, 308}),                 kStatusValueRefused},
        {"MovedTooLong",     server("p", {1000, 2024}, {3000, 4024}),             kStatusValueRefused},
        {"NothingOpened",    trigger("t", {}),                                    kStatusValueRefused},
        {"GapInRanges",      trigger("t", {{1, 2}, {0, 0}, {3, 4}}),              kStatusValueRefused},
        {"UnknownServer",    by_name(code::kDeleteNatRedirect, "rtsp"),           kStatusUnknownName},
    };
    // clang-format on
    for (const Refused& each : cases) {
        const std::string before = service->store.running().text();
        EXPECT_EQ(ask(each.request), each.status) << each.name;
        EXPECT_EQ(service->store.running().text() == before, each.status != kStatusOk) << each.name;
    }
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
