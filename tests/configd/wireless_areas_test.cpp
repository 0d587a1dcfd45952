// The wireless side and the ports: radios, MAC filter, WDS peers, operation mode, RADIUS servers, counters.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <optional>

#include "configd/machine_stand_in.h"
#include "configd/memory_storage.h"
#include "configd/operations.h"
#include "configd/table_sizes.h"
#include "service/codes.h"
#include "service/fields/mac_filter.h"
#include "service/fields/operation_mode.h"
#include "service/fields/ports.h"
#include "service/fields/radius.h"
#include "service/fields/wds.h"
#include "service/fields/wireless_port.h"
#include "service/fields/wireless_settings.h"

namespace {
namespace port = wireless_port_record;
namespace settings = wireless_record;
namespace counters = port_statistics_record;

using Change = std::function<void(ComParam&)>;

class WirelessAreas : public testing::Test {
protected:
    WirelessAreas()
    {
        machine = {};
        profile.radios[0] = {.name = "radio1",
                             .interface = "wlan0",
                             .mac = {},
                             .ssid = "from-profile",
                             .channel = 6,
                             .mode = 2,
                             .clients = {station(1, 100), station(2, 50)}};
        start_service();
    }

    static device::Station station(unsigned char lastOfMac, std::uint32_t frames)
    {
        return {.mac = {2, 0, 0x5E, 0x20, 0, lastOfMac},
                .state = device::Station::State::kAssociated,
                .txFrames = frames,
                .rxFrames = 2 * frames,
                .txBytes = 3 * frames,
                .rxBytes = 4 * frames};
    }

    // Again: what a crash of the service leaves is what it finds.
    void start_service()
    {
        service.emplace(Service{kMachineStandIn, profile, Store(model, storage.operations(), {"run", "state"}),
                                ClearedCounters(storage.operations(), "run")});
        service->store.start();
    }

    std::uint32_t ask(
        std::uint16_t code, const Change& change = [](ComParam&) {})
    {
        ComParam request{};
        record::kind.set(request, record::kRequest);
        record::code.set(request, code);
        change(request);
        return ask(request);
    }
    std::uint32_t ask(const ComParam& request)
    {
        answer_request(*service, request, answer);
        return record::status.get(answer.record);
    }
    // Reads, changes, writes.
    std::uint32_t rewrite(std::uint16_t read, std::uint16_t write, const Change& change, const Change& key = {})
    {
        ask(
            read, key ? key : [](ComParam&) {});
        ComParam request = answer.record;
        record::code.set(request, write);
        record::attachedLength.set(request, 0);
        change(request);
        return ask(request);
    }
    bool payload_is_empty() const
    {
        const auto* begin = answer.record.bytes + record::kPayload;
        return std::all_of(begin, answer.record.bytes + record::kPayloadEnd, [](unsigned char b) { return b == 0; });
    }
    bool answer_shows(std::string_view text) const
    {
        const std::string_view record{reinterpret_cast<const char*>(answer.record.bytes), kRecordSize};
        return record.find(text) != record.npos;
    }
    std::size_t entries(std::size_t size) const { return answer.table.size() / size; }

    Profile profile = built_in_profile();
    const Model model = model_of(areas());
    MemoryStorage storage;
    std::optional<Service> service;
    Answer answer;
};

Change radio(const char* name)
{
    return [=](ComParam& r) { port::radio.set(r, name); };
}

TEST_F(WirelessAreas, ARadioIsTheSameInBothRecords)
{
    EXPECT_EQ(ask(code::kReadWirelessSettings), kStatusOk);
    EXPECT_STREQ(settings::networkName.get(answer.record), "from-profile");
    EXPECT_EQ(settings::channel.get(answer.record), 6);

    EXPECT_EQ(rewrite(code::kReadWirelessSettings, code::kWriteWirelessSettings,
                      [](ComParam& r) {
                          settings::networkName.set(r, "a name of thirty-seven characters ....");
                          settings::channel.set(r, 11);
                      }),
              kStatusOk);
    EXPECT_EQ(ask(code::kReadWirelessPort, radio("radio1")), kStatusOk);
    EXPECT_STREQ(port::ssid.get(answer.record), "a name of thirty-seven characters ...");
    EXPECT_EQ(port::channel.get(answer.record), 11);
    EXPECT_EQ(port::mode.get(answer.record), 2) << "as the profile says";

    EXPECT_EQ(rewrite(
                  code::kReadWirelessPort, code::kWriteWirelessPort,
                  [](ComParam& r) {
                      port::ssid.set(r, "other");
                      port::channel.set(r, 1);
                      port::mode.set(r, 13);
                  },
                  radio("radio1")),
              kStatusOk);
    start_service();
    ask(code::kReadWirelessSettings);
    EXPECT_STREQ(settings::networkName.get(answer.record), "other");
    EXPECT_EQ(settings::channel.get(answer.record), 1);
}

TEST_F(WirelessAreas, ARadioThatTheDeviceDoesNotHave)
{
    EXPECT_EQ(ask(code::kReadWirelessPort, radio("radio2")), kStatusNoDevice);
    EXPECT_EQ(ask(code::kWriteWirelessPort, radio("radio2")), kStatusNoDevice);
    EXPECT_EQ(ask(code::kReadWirelessPort, radio("radio3")), kStatusUnknownName);
    profile.radios.clear();
    start_service();
    EXPECT_EQ(ask(code::kReadWirelessSettings), kStatusNoDevice);
    EXPECT_EQ(ask(code::kWriteWirelessSettings), kStatusNoDevice);
}

struct SettingCase {
    const char* name;
    Change change;
    ServiceStatus status;
};
using settings::beaconInterval, settings::dtimInterval, settings::fragmentThreshold, settings::rtsThreshold;

Change on_channel(std::uint16_t domain, std::uint16_t channel)
{
    return [=](ComParam& r) {
        settings::domain.set(r, domain);
        settings::channel.set(r, channel);
    };
}
// clang-format off
const SettingCase kSettings[] = {
    {"KeyFour",         [](ComParam& r) { settings::keyIndex.set(r, 4); },    kStatusOk},
    {"KeyFive",         [](ComParam& r) { settings::keyIndex.set(r, 5); },    kStatusValueRefused},
    {"KeyTypeOfTyped",  [](ComParam& r) { settings::keyType[2].set(r, 5); },  kStatusOk},
    {"NoKeyType",       [](ComParam& r) { settings::keyType[2].set(r, 6); },  kStatusValueRefused},
    {"NoKeyLength",     [](ComParam& r) { settings::keyLength.set(r, 2); },   kStatusValueRefused},
    {"NeitherYesNorNo", [](ComParam& r) { settings::hidden.set(r, 2); },      kStatusValueRefused},
    {"NoDomain",        [](ComParam& r) { settings::domain.set(r, 17); },     kStatusValueRefused},
    {"FccLast",         on_channel(settings::kFcc, 11),                       kStatusOk},
    {"FccBehindLast",   on_channel(settings::kFcc, 12),                       kStatusChannelRefused},
    {"SpainLast",       on_channel(settings::kSpain, 13),                     kStatusOk},
    {"EtsiBehindLast",  on_channel(settings::kEtsi, 14),                      kStatusChannelRefused},
    {"JapanLast",       on_channel(settings::kJapan, 14),                     kStatusOk},
    {"FranceFirst",     on_channel(settings::kFrance, 10),                    kStatusOk},
    {"FranceBelow",     on_channel(settings::kFrance, 9),                     kStatusChannelRefused},
    {"FiveGhz",         on_channel(settings::kFcc, 36),                       kStatusChannelRefused},
    {"Automatic",       on_channel(settings::kFrance, 0),                     kStatusOk},
    {"RtsHighest",      [](ComParam& r) { rtsThreshold.set(r, 2347); },       kStatusOk},
    {"RtsTooHigh",      [](ComParam& r) { rtsThreshold.set(r, 2348); },       kStatusValueRefused},
    {"RtsZero",         [](ComParam& r) { rtsThreshold.set(r, 0); },          kStatusOk},
    {"FragmentLowest",  [](ComParam& r) { fragmentThreshold.set(r, 256); },   kStatusOk},
    {"FragmentTooLow",  [](ComParam& r) { fragmentThreshold.set(r, 255); },   kStatusValueRefused},
    {"BeaconTooLow",    [](ComParam& r) { beaconInterval.set(r, 19); },       kStatusValueRefused},
    {"BeaconHighest",   [](ComParam& r) { beaconInterval.set(r, 1000); },     kStatusOk},
    {"DtimZero",        [](ComParam& r) { dtimInterval.set(r, 0); },          kStatusValueRefused},
    {"DtimTooHigh",     [](ComParam& r) { dtimInterval.set(r, 256); },        kStatusValueRefused},
};
// clang-format on
TEST_F(WirelessAreas, SettingsAreTakenWithinTheirLimits)
{
    for (const SettingCase& c : kSettings) {
        ask(code::kReadWirelessSettings);
        const ComParam before = answer.record;
        EXPECT_EQ(rewrite(code::kReadWirelessSettings, code::kWriteWirelessSettings, c.change), c.status) << c.name;
        EXPECT_TRUE(payload_is_empty()) << c.name;
        ask(code::kReadWirelessSettings);
        ComParam wanted = before;
        if (c.status == kStatusOk) c.change(wanted);
        EXPECT_EQ(std::memcmp(answer.record.bytes, wanted.bytes, kRecordSize), 0) << c.name;
    }
}

TEST_F(WirelessAreas, ARadioOfTheOtherBandHasOtherChannels)
{
    const auto set = [this](std::uint8_t mode, std::uint16_t channel) {
        return rewrite(
            code::kReadWirelessPort, code::kWriteWirelessPort,
            [=](ComParam& r) {
                port::mode.set(r, mode);
                port::channel.set(r, channel);
            },
            radio("radio1"));
    };
    EXPECT_EQ(set(4, 36), kStatusOk);
    EXPECT_EQ(rewrite(code::kReadWirelessSettings, code::kWriteWirelessSettings,
                      [](ComParam& r) { settings::hidden.set(r, 1); }),
              kStatusOk);
    EXPECT_EQ(set(4, 6), kStatusChannelRefused);
    EXPECT_EQ(set(4, 197), kStatusValueRefused);
    EXPECT_EQ(set(1, 6), kStatusOk);
    EXPECT_EQ(set(3, 36), kStatusChannelRefused);
}

TEST_F(WirelessAreas, KeysComeBackByteForByteAndNowhereElse)
{
    constexpr char kKey[] = "\0key\0\x80\xff.........";  // its last byte is the NUL: the field is full
    static_assert(sizeof kKey == 17);
    const Change set_keys = [&](ComParam& r) {
        settings::passphrase.set(r, "canary phrase");
        std::memcpy(r.bytes + settings::key[3].at.offset, kKey, settings::key[3].at.width);
        std::memcpy(r.bytes + settings::key[0].at.offset, "canary", 6);
    };
    ASSERT_EQ(rewrite(code::kReadWirelessSettings, code::kWriteWirelessSettings, set_keys), kStatusOk);
    EXPECT_FALSE(answer_shows("canary"));
    EXPECT_EQ(ask(code::kReadWirelessPort, radio("radio1")), kStatusOk);
    EXPECT_FALSE(answer_shows("canary"));

    EXPECT_EQ(ask(code::kSaveConfiguration), kStatusOk);
    EXPECT_EQ(ask(code::kClearConfiguration), kStatusOk);
    ask(code::kReadWirelessSettings);
    EXPECT_FALSE(answer_shows("canary"));
    rewrite(code::kReadWirelessSettings, code::kWriteWirelessSettings, set_keys);
    start_service();
    ask(code::kReadWirelessSettings);
    EXPECT_EQ(std::memcmp(answer.record.bytes + settings::key[3].at.offset, kKey, settings::key[3].at.width), 0);
    EXPECT_STREQ(settings::passphrase.get(answer.record), "canary phrase");
}

TEST_F(WirelessAreas, AFileWithoutProperKeysIsNotUsed)
{
    rewrite(code::kReadWirelessSettings, code::kWriteWirelessSettings, [](ComParam& r) {
        settings::channel.set(r, 11);
        settings::key[0].set(r, "canary");
    });
    const std::string good = storage.files.at("run/running.json");
    const std::string key = "\"63616e617279\"";
    ASSERT_NE(good.find(key), good.npos);
    for (const char* bad : {"\"6\"", "\"6g\"", "\"000102030405060708090a0b0c0d0e0f1011\"", "7"}) {
        storage.files["run/running.json"] = std::string(good).replace(good.find(key), key.size(), bad);
        start_service();
        ask(code::kReadWirelessSettings);
        EXPECT_EQ(settings::channel.get(answer.record), 6) << bad;
    }
}

Change named(TextField nameField, MacField macField, const char* name, unsigned char lastOfMac, unsigned char first = 2)
{
    return [=](ComParam& r) {
        const unsigned char mac[6] = {first, first, first, first, first, lastOfMac};
        nameField.set(r, name);
        macField.set(r, mac);
    };
}
Change filter(const char* name, unsigned char lastOfMac, unsigned char first = 2)
{
    return named(mac_filter_record::name, mac_filter_record::mac, name, lastOfMac, first);
}
Change peer(const char* name, unsigned char lastOfMac, unsigned char first = 2)
{
    return named(wds_record::name, wds_record::mac, name, lastOfMac, first);
}

TEST_F(WirelessAreas, TheMacFilterRefusesWhatItHasAlready)
{
    const char* const kLongest = "a name \"of\" thirty characters.";
    EXPECT_EQ(ask(code::kReadMacFilter), kStatusOk);
    EXPECT_EQ(entries(named_mac_entry::kSize), 0u);
    EXPECT_EQ(ask(code::kAddMacFilter, filter(kLongest, 1)), kStatusOk);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("guest", 2)), kStatusOk);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("guest", 3)), kStatusDuplicateName);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("third", 2)), kStatusDuplicateAddress);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("", 4)), kStatusValueRefused);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("tab\t", 4)), kStatusValueRefused);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("zeros", 0, 0)), kStatusValueRefused);
    EXPECT_EQ(ask(code::kAddMacFilter, filter("broadcast", 0xFF, 0xFF)), kStatusValueRefused);
    EXPECT_EQ(ask(code::kDeleteMacFilter, filter("Guest", 2)), kStatusUnknownName);

    EXPECT_EQ(ask(code::kWriteMacFilterMode, [](ComParam& r) { mac_filter_record::mode.set(r, 3); }),
              kStatusValueRefused);
    EXPECT_EQ(ask(code::kWriteMacFilterMode, [](ComParam& r) { mac_filter_record::mode.set(r, 2); }), kStatusOk);
    start_service();
    EXPECT_EQ(ask(code::kReadMacFilter), kStatusOk);
    EXPECT_EQ(mac_filter_record::mode.get(answer.record), 2);
    ASSERT_EQ(entries(named_mac_entry::kSize), 2u);
    EXPECT_STREQ(named_mac_entry::name.get(answer.table.data()), kLongest);
    EXPECT_EQ(named_mac_entry::mac.get(answer.table.data())[5], 1);
    EXPECT_EQ(ask(code::kDeleteMacFilter, filter(kLongest, 77)), kStatusOk) << "by its name alone";
}

TEST_F(WirelessAreas, TablesEndWhereTheirSizesSay)
{
    struct {
        std::uint16_t add, remove, read;
        Change (*entry)(const char*, unsigned char, unsigned char);
        std::size_t most;
        ServiceStatus full;
    } const tables[] = {
        {code::kAddMacFilter, code::kDeleteMacFilter, code::kReadMacFilter, filter, kMostMacFilters, kStatusTableFull},
        {code::kAddWdsPeer, code::kDeleteWdsPeer, code::kReadWdsPeers, peer, kMostWdsPeers, kStatusPeerTableFull},
    };
    for (const auto& table : tables) {
        for (std::size_t i = 0; i < table.most; i++) {
            const std::string name = "entry " + std::to_string(i);
            EXPECT_EQ(ask(table.add, table.entry(name.c_str(), static_cast<unsigned char>(i), 2)), kStatusOk) << name;
        }
        EXPECT_EQ(ask(table.add, table.entry("one more", 0xEE, 2)), table.full);
        ask(table.read);
        EXPECT_EQ(entries(named_mac_entry::kSize), table.most);
        EXPECT_EQ(ask(table.remove, table.entry("entry 0", 0, 2)), kStatusOk);
        EXPECT_EQ(ask(table.add, table.entry("one more", 0xEE, 2)), kStatusOk);
    }
    ask(code::kReadWdsPeers);
    EXPECT_EQ(wds_record::count.get(answer.record), kMostWdsPeers);
}

TEST_F(WirelessAreas, PeersAreRefusedInTheirOwnWords)
{
    EXPECT_EQ(ask(code::kAddWdsPeer, peer("roof", 1)), kStatusOk);
    EXPECT_EQ(ask(code::kAddWdsPeer, peer("roof", 2)), kStatusDuplicatePeer);
    EXPECT_EQ(ask(code::kAddWdsPeer, peer("barn", 1)), kStatusDuplicatePeerAddress);
    EXPECT_EQ(ask(code::kDeleteWdsPeer, peer("barn", 1)), kStatusUnknownName);
}

TEST_F(WirelessAreas, OnlyARepeaterHasAnAccessPointToRepeat)
{
    using namespace operation_mode_record;
    const auto set = [this](std::uint8_t wanted, const char* mac) {
        return ask(code::kWriteOperationMode, [=](ComParam& r) {
            mode.set(r, wanted);
            repeated.set(r, mac);
        });
    };
    EXPECT_EQ(set(kRepeater, "\0\0\0\0\0\0"), kStatusValueRefused);
    EXPECT_EQ(set(kRepeater, "\2\1\1\1\1\1"), kStatusOk);
    EXPECT_EQ(set(kWds, "left "), kStatusOk);
    EXPECT_EQ(mode.get(answer.record), kWds);
    EXPECT_EQ(set(0, "left "), kStatusValueRefused);
    EXPECT_EQ(set(4, "left "), kStatusValueRefused);
    start_service();
    EXPECT_EQ(ask(code::kReadOperationMode), kStatusOk);
    EXPECT_EQ(mode.get(answer.record), kWds);
    EXPECT_EQ(std::memcmp(repeated.get(answer.record), "\2\1\1\1\1\1", 6), 0) << "stays known";
}

Change entry(const char* name)
{
    return [=](ComParam& r) { radius_record::name.set(r, name); };
}

const SettingCase kRadius[] = {
    {"Address", [](ComParam& r) { radius_record::address.set(r, 0x0A000009); }, kStatusOk},
    {"Multicast", [](ComParam& r) { radius_record::address.set(r, 0xE0000001); }, kStatusValueRefused},
    {"NoPort", [](ComParam& r) { radius_record::port.set(r, 0); }, kStatusValueRefused},
    {"NoRetry", [](ComParam& r) { radius_record::retries.set(r, 0); }, kStatusValueRefused},
    {"MostRetries", [](ComParam& r) { radius_record::retries.set(r, 5); }, kStatusOk},
    {"TooManyRetries", [](ComParam& r) { radius_record::retries.set(r, 6); }, kStatusValueRefused},
    {"ReattemptTooSoon", [](ComParam& r) { radius_record::reattempt.set(r, 4); }, kStatusValueRefused},
    {"ReattemptTooLate", [](ComParam& r) { radius_record::reattempt.set(r, 61); }, kStatusValueRefused},
    {"LongestSecret", [](ComParam& r) { radius_record::secret.set(r, std::string(63, 's').c_str()); }, kStatusOk},
    {"EndlessSecret", [](ComParam& r) { std::memset(r.bytes + radius_record::secret.at.offset, 's', 64); },
     kStatusValueRefused},
};
TEST_F(WirelessAreas, RadiusServersAreTakenWithinTheirLimits)
{
    for (const SettingCase& c : kRadius) {
        ask(code::kReadRadius, entry("secondary"));
        ComParam wanted = answer.record;
        EXPECT_EQ(rewrite(code::kReadRadius, code::kWriteRadius, c.change, entry("secondary")), c.status) << c.name;
        EXPECT_FALSE(answer_shows("ssss")) << c.name;
        ask(code::kReadRadius, entry("secondary"));
        if (c.status == kStatusOk) c.change(wanted);
        EXPECT_EQ(std::memcmp(answer.record.bytes, wanted.bytes, kRecordSize), 0) << c.name;
    }
    for (const std::uint16_t code : {code::kReadRadius, code::kWriteRadius, code::kApplyRadius, code::kDeleteRadius})
        for (const char* unknown : {"", "prim", "both"})
            EXPECT_EQ(ask(code, entry(unknown)), kStatusUnknownName) << code << unknown;
    EXPECT_EQ(ask(374, entry("primary")), kStatusUnknownOperation);
}

TEST_F(WirelessAreas, WhatHoldsForBothRadiusServersIsStoredOnce)
{
    rewrite(
        code::kReadRadius, code::kWriteRadius,
        [](ComParam& r) {
            radius_record::retries.set(r, 5);
            radius_record::macControl.set(r, 1);
            radius_record::secret.set(r, "canary");
        },
        entry("primary"));
    EXPECT_EQ(ask(code::kApplyRadius, entry("primary")), kStatusOk);
    EXPECT_TRUE(payload_is_empty());
    EXPECT_EQ(ask(code::kWriteRadiusReattempt, [](ComParam& r) { radius_record::reattempt.set(r, 7); }), kStatusOk);
    EXPECT_TRUE(payload_is_empty());
    EXPECT_EQ(ask(code::kWriteRadiusReattempt, [](ComParam& r) { radius_record::reattempt.set(r, 61); }),
              kStatusValueRefused);
    start_service();
    ask(code::kReadRadius, entry("secondary"));
    EXPECT_STREQ(radius_record::name.get(answer.record), "secondary");
    EXPECT_EQ(radius_record::retries.get(answer.record), 5);
    EXPECT_EQ(radius_record::macControl.get(answer.record), 1);
    EXPECT_EQ(radius_record::reattempt.get(answer.record), 7);
    EXPECT_FALSE(answer_shows("canary"));

    EXPECT_EQ(ask(code::kDeleteRadius, entry("secondary")), kStatusUnknownName) << "was never set";
    EXPECT_EQ(ask(code::kDeleteRadius, entry("primary")), kStatusOk);
    EXPECT_EQ(ask(code::kDeleteRadius, entry("primary")), kStatusUnknownName);
    ask(code::kReadRadius, entry("primary"));
    EXPECT_EQ(radius_record::port.get(answer.record), 1812);
    EXPECT_EQ(radius_record::retries.get(answer.record), 5) << "no setting of the entry";
    EXPECT_FALSE(answer_shows("canary"));
}

Change of_interface(const char* name)
{
    return [=](ComParam& r) { counters::interface.set(r, name); };
}

device::Interface counting(const char* name, std::uint64_t base)
{
    device::Interface made = interface_named(name, 1);
    made.counters = {.rxPackets = base + 1,
                     .rxBytes = 0,
                     .rxErrors = base + 2,
                     .rxDropped = base + 3,
                     .txPackets = base + 4,
                     .txBytes = 0,
                     .txErrors = base + 5,
                     .txDropped = base + 6,
                     .txAborted = base + 7,
                     .collisions = base + 8};
    return made;
}

TEST_F(WirelessAreas, CountersAreTheMachinesSinceTheyWereCleared)
{
    machine.interfaces = {counting("eth0", 0x1'0000'0000), counting("wlan0", 0)};
    ASSERT_EQ(ask(code::kReadPortStatistics, of_interface("eth0")), kStatusOk);
    constexpr std::uint32_t kWords[] = {4, 1, 5, 2, 7, 8, 6, 3};  // in the order of the record
    EXPECT_EQ(std::memcmp(answer.record.bytes + counters::goodTransmitted.at.offset, kWords, sizeof kWords), 0);
    ASSERT_EQ(ask(code::kReadPortStatistics, of_interface("wlan0")), kStatusOk);
    EXPECT_EQ(counters::wirelessReceived.get(answer.record), 1u);
    EXPECT_EQ(counters::wirelessTransmitted.get(answer.record), 4u);
    EXPECT_EQ(counters::wirelessReceiveErrors.get(answer.record), 2u);
    EXPECT_EQ(counters::wirelessTransmitErrors.get(answer.record), 5u);
    for (const std::uint16_t code : {code::kReadPortStatistics, code::kClearPortStatistics})
        for (const char* none : {"", "eth1", "sixteen letters.."})
            EXPECT_EQ(ask(code, of_interface(none)), kStatusNoDevice) << none;

    EXPECT_EQ(ask(code::kClearPortStatistics, of_interface("eth0")), kStatusOk);
    EXPECT_EQ(ask(code::kClearWirelessPort), kStatusOk);
    machine.interfaces[0].counters.rxPackets += 30;
    start_service();
    for (const char* each : {"eth0", "wlan0"}) {
        ask(code::kReadPortStatistics, of_interface(each));
        EXPECT_EQ(counters::wirelessTransmitErrors.get(answer.record), 0u) << each;
    }
    ask(code::kReadPortStatistics, of_interface("eth0"));
    EXPECT_EQ(counters::goodReceived.get(answer.record), 30u);

    machine.interfaces[0].counters.rxPackets = 3;  // the interface was made anew
    ask(code::kReadPortStatistics, of_interface("eth0"));
    EXPECT_EQ(counters::goodReceived.get(answer.record), 3u);
    machine.interfaces.pop_back();
    EXPECT_EQ(ask(code::kClearWirelessPort), kStatusNoDevice);
}

TEST_F(WirelessAreas, CountersThatCannotBeClearedStay)
{
    machine.interfaces = {counting("eth0", 0)};
    storage.readOnly = true;
    EXPECT_EQ(ask(code::kClearPortStatistics, of_interface("eth0")), kStatusStorageReadOnly);
    ask(code::kReadPortStatistics, of_interface("eth0"));
    EXPECT_EQ(counters::goodReceived.get(answer.record), 1u);

    for (const char* content : {"", "[]", "{\"interfaces\": 7}", "{\"interfaces\": {\"eth0\": [\"x\", -1, 1e9]}}"}) {
        storage.files["run/cleared-counters.json"] = content;
        start_service();
        EXPECT_EQ(ask(code::kReadPortStatistics, of_interface("eth0")), kStatusOk) << content;
        EXPECT_EQ(counters::goodReceived.get(answer.record), 1u) << content;
    }
}

TEST_F(WirelessAreas, TheLinkIsTheDrivers)
{
    const Change eth0 = [](ComParam& r) { link_record::interface.set(r, "eth0"); };
    EXPECT_EQ(ask(code::kReadLink, eth0), kStatusNoDevice);
    machine.linkError = 0;
    machine.link = {.carrier = device::Carrier::kUp,
                    .speed = 1000,
                    .duplex = device::Duplex::kFull,
                    .flowControl = device::FlowControl::kOn};
    EXPECT_EQ(ask(code::kReadLink, eth0), kStatusOk);
    EXPECT_EQ(link_record::up.get(answer.record), 1);
    EXPECT_EQ(link_record::speed.get(answer.record), link_record::kHundred);
    EXPECT_EQ(link_record::duplex.get(answer.record), link_record::kFull);
    EXPECT_EQ(link_record::flowControl.get(answer.record), 1);
    machine.link = {};
    EXPECT_EQ(ask(code::kReadLink, eth0), kStatusOk);
    for (const auto& field : {link_record::up, link_record::speed, link_record::duplex, link_record::flowControl})
        EXPECT_EQ(field.get(answer.record), 0);
}

TEST_F(WirelessAreas, ClientsComeFromTheProfileOrFromHostapd)
{
    const auto frames_of = [this](std::size_t index) {
        return wireless_client_entry::receivedFrames.get(answer.table.data() + index * wireless_client_entry::kSize);
    };
    EXPECT_EQ(ask(code::kReadWirelessClients), kStatusOk);
    ASSERT_EQ(entries(wireless_client_entry::kSize), 2u);
    EXPECT_EQ(wireless_client_entry::mac.get(answer.table.data())[5], 1);
    EXPECT_EQ(wireless_client_entry::state.get(answer.table.data()), 2);
    EXPECT_EQ(frames_of(0), 200u);

    EXPECT_EQ(ask(code::kClearWirelessClients), kStatusOk);
    profile.radios[0].clients[0].rxFrames += 7;
    start_service();
    ask(code::kReadWirelessClients);
    EXPECT_EQ(frames_of(0), 7u);
    EXPECT_EQ(frames_of(1), 0u);

    profile.hostapd = "/run/hostapd/wlan0";
    start_service();
    EXPECT_EQ(ask(code::kReadWirelessClients), kStatusNoDevice);
    EXPECT_EQ(ask(code::kClearWirelessClients), kStatusNoDevice);
    machine.stationError = 0;
    EXPECT_EQ(ask(code::kReadWirelessClients), kStatusOk);
    EXPECT_TRUE(answer.table.empty());
    machine.stations = {station(9, 1)};
    ask(code::kReadWirelessClients);
    EXPECT_EQ(entries(wireless_client_entry::kSize), 1u);
    EXPECT_EQ(frames_of(0), 2u);
}
}  // namespace
