// Two clients with the same record: what one of them changes between the other's read and its write.
#include "configd/area_session.h"
#include "service/fields/address.h"
#include "service/fields/dhcp.h"
#include "service/fields/management.h"
#include "service/fields/operation_mode.h"
#include "service/fields/radius.h"
#include "service/fields/snmp.h"
#include "service/fields/system.h"
#include "service/fields/wireless_settings.h"

namespace {
using Change = void (*)(ComParam& record);

struct Case {
    const char* name;
    std::uint16_t read, write;
    Change key;            // names what is asked for
    Change first, second;  // the second is made and written while the first is under way
    std::uint32_t status;  // of the first's write, which comes last
    bool (*holds)(ComParam& read);
};
void nothing(ComParam&) {}
void name_primary(ComParam& r) { radius_record::name.set(r, "primary"); }
void name_wan(ComParam& r) { address_record::interface.set(r, "wan"); }
void set_wan(ComParam& r)
{
    address_record::mode.set(r, address_record::kStatic);
    address_record::address.set(r, 0x0A000005);
    address_record::netmask.set(r, 0xFFFFFF00);
}
// clang-format off
const Case kCases[] = {
    {"OtherSettingsStay", code::kReadDhcpServer, code::kWriteDhcpServer, nothing,
     [](ComParam& r) { dhcp_record::leaseTime.set(r, 60); },
     [](ComParam& r) { dhcp_record::gateway.set(r, 0xC0A801FE); dhcp_record::state.set(r, dhcp_record::kDisabled); },
     kStatusOk,
     [](ComParam& r) { return dhcp_record::leaseTime.get(r) == 60 && dhcp_record::gateway.get(r) == 0xC0A801FE &&
                              dhcp_record::state.get(r) == dhcp_record::kDisabled; }},
    {"WhatDoesNotGoTogetherIsRefused", code::kReadManagement, code::kWriteManagement, nothing,
     [](ComParam& r) { management_record::telnetPort.set(r, 8080); },
     [](ComParam& r) { management_record::httpPort.set(r, 8080); },
     kStatusPortInUse,
     [](ComParam& r) { return management_record::telnetPort.get(r) == 23 && management_record::httpPort.get(r) == 8080; }},
    {"EntryAndWhatItShares", code::kReadRadius, code::kWriteRadius, name_primary,
     [](ComParam& r) { radius_record::address.set(r, 0x0A000009); },
     [](ComParam& r) { radius_record::retries.set(r, 5); radius_record::secret.set(r, "s"); },
     kStatusOk,
     [](ComParam& r) { return radius_record::address.get(r) == 0x0A000009 && radius_record::retries.get(r) == 5 &&
                              std::string_view(radius_record::secret.get(r)) == "s"; }},
    {"TheMachinesAddressIsNoSetting", code::kReadAddress, code::kWriteAddress, name_wan,
     [](ComParam& r) { address_record::primaryDns.set(r, 0x08080808); }, set_wan,
     kStatusOk,
     [](ComParam& r) { return address_record::address.get(r) == 0x0A000005 &&
                              address_record::primaryDns.get(r) == 0x08080808; }},
};
// clang-format on

class TwoClients : public AreaSession {
protected:
    TwoClients() { machine.interfaces = {interface_named("eth0", 1), interface_named("eth1", 2, 0xCB007107)}; }

    ComParam read_by(std::uint64_t client, std::uint16_t code, Change key = nothing)
    {
        asker.connection = client;
        ComParam wanted = request_of(code);
        key(wanted);
        EXPECT_EQ(ask(wanted), kStatusOk);
        record::attachedLength.set(answer.record, 0);
        return answer.record;
    }
    std::uint32_t write_by(std::uint64_t client, std::uint16_t code, ComParam record)
    {
        asker.connection = client;
        record::code.set(record, code);
        return ask(record);
    }
    std::uint16_t lease() { return static_cast<std::uint16_t>(dhcp_record::leaseTime.get(dhcp())); }
    std::uint32_t gateway() { return dhcp_record::gateway.get(dhcp()); }
    ComParam dhcp() { return read_by(9, code::kReadDhcpServer); }
};

TEST_F(TwoClients, WhatOneDidNotChangeIsAsTheOtherLeftIt)
{
    for (const Case& each : kCases) {
        read_by(1, code::kReadSystem);
        ComParam first = read_by(1, each.read, each.key), second = read_by(2, each.read, each.key);
        each.second(second);
        EXPECT_EQ(write_by(2, each.write, second), kStatusOk) << each.name;
        read_by(1, code::kReadUpnp);      // other questions of the first's operator, and
        read_by(1, each.read, each.key);  // the same record again: what it began with is still the first one
        each.first(first);
        EXPECT_EQ(write_by(1, each.write, first), each.status) << each.name;
        ComParam after = read_by(1, each.read, each.key);
        EXPECT_TRUE(each.holds(after)) << each.name;
    }
}

TEST_F(TwoClients, OnesOwnChangesAreKnownToOneself)
{
    ComParam kept = dhcp();
    dhcp_record::leaseTime.set(kept, 60);
    EXPECT_EQ(write_by(1, code::kWriteDhcpServer, kept), kStatusOk);
    ComParam other = dhcp();
    dhcp_record::gateway.set(other, 0xC0A801FE);
    EXPECT_EQ(write_by(2, code::kWriteDhcpServer, other), kStatusOk);
    dhcp_record::leaseTime.set(kept, 1440);  // back to what the record showed when it was read
    EXPECT_EQ(write_by(1, code::kWriteDhcpServer, kept), kStatusOk);
    EXPECT_EQ(lease(), 1440);
    EXPECT_EQ(gateway(), 0xC0A801FE);
}

TEST_F(TwoClients, ARecordOfOtherOriginIsTakenWhole)
{
    const ComParam whole = dhcp();
    struct {
        const char* name;
        std::uint32_t revision;
        std::uint16_t section;
    } const origins[] = {
        {"None", 0, 0},
        {"AnotherSection", origin_record::revision.get(whole), 1},
        {"Before", origin_record::revision.get(whole) - 1, origin_record::section.get(whole)},
        {"Ahead", origin_record::revision.get(whole) + 1000, origin_record::section.get(whole)},
    };
    for (const auto& origin : origins) {
        ComParam other = dhcp();
        dhcp_record::gateway.set(other, 0xC0A801FE);
        EXPECT_EQ(write_by(2, code::kWriteDhcpServer, other), kStatusOk);
        ComParam made = whole;
        origin_record::revision.set(made, origin.revision);
        origin_record::section.set(made, origin.section);
        EXPECT_EQ(write_by(1, code::kWriteDhcpServer, made), kStatusOk);
        EXPECT_EQ(gateway(), 0xC0A80101u) << origin.name;
    }
}

TEST_F(TwoClients, WhatIsKeptOfThePastHasABound)
{
    ComParam early = dhcp(), late = early;
    for (std::uint32_t i = 1; i <= Revisions::kRoom / kRecordSize; i++) {
        ComParam radio = read_by(2, code::kReadWirelessSettings);
        wireless_record::beaconInterval.set(radio, static_cast<std::uint16_t>(200 + i));
        ASSERT_EQ(write_by(2, code::kWriteWirelessSettings, radio), kStatusOk);
        if (i == 3) late = dhcp();
    }
    for (const bool remembered : {true, false}) {
        for (int i = 0; i < 3 && !remembered; i++) {
            ComParam radio = read_by(2, code::kReadWirelessSettings);
            wireless_record::beaconInterval.set(radio, static_cast<std::uint16_t>(100 + i));
            ASSERT_EQ(write_by(2, code::kWriteWirelessSettings, radio), kStatusOk);
        }
        ComParam other = dhcp();
        dhcp_record::gateway.set(other, 0xC0A801FE);
        ASSERT_EQ(write_by(2, code::kWriteDhcpServer, other), kStatusOk);
        EXPECT_EQ(write_by(1, code::kWriteDhcpServer, remembered ? late : early), kStatusOk);
        EXPECT_EQ(gateway(), remembered ? 0xC0A801FE : 0xC0A80101);
    }
}

// These requests carry what an earlier answer left: that it shows the same value does not mean that nothing is wanted.
TEST_F(TwoClients, WhatIsNotReadFirstIsAlwaysMeant)
{
    ComParam system = read_by(1, code::kReadSystem), other = read_by(2, code::kReadSystem);
    system_record::prompt.set(other, "other");
    EXPECT_EQ(write_by(2, code::kWriteSystem, other), kStatusOk);
    EXPECT_EQ(write_by(1, code::kWriteSystem, system), kStatusOk);
    ComParam after = read_by(1, code::kReadSystem);
    EXPECT_STREQ(system_record::prompt.get(after), "Command");

    ComParam mode = read_by(1, code::kReadOperationMode), wds = read_by(2, code::kReadOperationMode);
    operation_mode_record::mode.set(wds, operation_mode_record::kWds);
    EXPECT_EQ(write_by(2, code::kWriteOperationMode, wds), kStatusOk);
    EXPECT_EQ(write_by(1, code::kWriteOperationMode, mode), kStatusOk);
    EXPECT_EQ(operation_mode_record::mode.get(read_by(1, code::kReadOperationMode)),
              operation_mode_record::kAccessPoint);
}
}  // namespace
