// The wireless side and the ports: radios, keys, counters.
#include <functional>

#include "configd/area_session.h"
#include "service/fields/ports.h"
#include "service/fields/wireless_port.h"
#include "service/fields/wireless_settings.h"

namespace {
namespace port = wireless_port_record;
namespace settings = wireless_record;
namespace counters = port_statistics_record;

class WirelessAreas : public AreaSession {
protected:
    WirelessAreas()
    {
        profile.radios[0].ssid = "from-profile";
        profile.radios[0].channel = 6;
        profile.radios[0].mode = 2;
        start();
    }

    std::uint32_t rewrite(const std::function<void(ComParam&)>& change)
    {
        ComParam made = to_write(code::kReadWirelessSettings, code::kWriteWirelessSettings);
        change(made);
        return ask(made);
    }
};

TEST_F(WirelessAreas, ARadioIsTheSameInBothRecords)
{
    EXPECT_EQ(ask(code::kReadWirelessSettings), kStatusOk);
    EXPECT_STREQ(settings::networkName.get(answer.record), "from-profile");
    EXPECT_EQ(settings::channel.get(answer.record), 6);

    EXPECT_EQ(rewrite([](ComParam& r) {
                  settings::networkName.set(r, "a name of thirty-seven characters ....");
                  settings::channel.set(r, 11);
              }),
              kStatusOk);
    EXPECT_EQ(ask(code::kReadWirelessPort, port::radio, "radio1"), kStatusOk);
    EXPECT_STREQ(port::ssid.get(answer.record), "a name of thirty-seven characters ...");
    EXPECT_EQ(port::channel.get(answer.record), 11);
}

TEST_F(WirelessAreas, KeysComeBackByteForByteAndNowhereElse)
{
    constexpr char kKey[] = "\0key\0\x80\xff.........";  // its last byte is the NUL: the field is full
    static_assert(sizeof kKey == 17);
    const auto set_keys = [&](ComParam& r) {
        settings::passphrase.set(r, "canary phrase");
        std::memcpy(r.bytes + settings::key[3].at.offset, kKey, settings::key[3].at.width);
        std::memcpy(r.bytes + settings::key[0].at.offset, "canary", 6);
    };
    ASSERT_EQ(rewrite(set_keys), kStatusOk);
    EXPECT_FALSE(answer_shows("canary"));
    EXPECT_EQ(ask(code::kReadWirelessPort, port::radio, "radio1"), kStatusOk);
    EXPECT_FALSE(answer_shows("canary"));

    EXPECT_EQ(ask(code::kSaveConfiguration), kStatusOk);
    EXPECT_EQ(ask(code::kClearConfiguration), kStatusOk);
    ask(code::kReadWirelessSettings);
    EXPECT_FALSE(answer_shows("canary"));
    rewrite(set_keys);
    start();
    ask(code::kReadWirelessSettings);
    EXPECT_EQ(std::memcmp(answer.record.bytes + settings::key[3].at.offset, kKey, settings::key[3].at.width), 0);
    EXPECT_STREQ(settings::passphrase.get(answer.record), "canary phrase");
}

TEST_F(WirelessAreas, AFileWithoutProperKeysIsNotUsed)
{
    rewrite([](ComParam& r) {
        settings::channel.set(r, 11);
        settings::key[0].set(r, "canary");
    });
    const std::string good = storage.files.at("run/running.json");
    const std::string key = "\"63616e617279\"";
    ASSERT_NE(good.find(key), good.npos);
    for (const char* bad : {"\"6\"", "\"6g\"", "\"000102030405060708090a0b0c0d0e0f1011\"", "7"}) {
        storage.files["run/running.json"] = std::string(good).replace(good.find(key), key.size(), bad);
        start();
        ask(code::kReadWirelessSettings);
        EXPECT_EQ(settings::channel.get(answer.record), 6) << bad;
    }
}

TEST_F(WirelessAreas, CountersThatCannotBeClearedStay)
{
    machine.interfaces = {interface_named("eth0", 1)};
    machine.interfaces[0].counters.rxPackets = 1;
    storage.readOnly = true;
    EXPECT_EQ(ask(code::kClearPortStatistics, counters::interface, "eth0"), kStatusStorageReadOnly);
    ask(code::kReadPortStatistics, counters::interface, "eth0");
    EXPECT_EQ(counters::goodReceived.get(answer.record), 1u);

    for (const char* content : {"", "[]", "{\"interfaces\": 7}", "{\"interfaces\": {\"eth0\": [\"x\", -1, 1e9]}}"}) {
        storage.files["run/cleared-counters.json"] = content;
        start();
        EXPECT_EQ(ask(code::kReadPortStatistics, counters::interface, "eth0"), kStatusOk) << content;
        EXPECT_EQ(counters::goodReceived.get(answer.record), 1u) << content;
    }
}

}  // namespace
