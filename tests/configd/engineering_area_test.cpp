#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "configd/area_session.h"
#include "service/fields/bridge.h"
#include "service/fields/engineering.h"
#include "service/fields/wireless_port.h"
#include "service/fields/wireless_settings.h"

namespace {
class EngineeringArea : public AreaSession {
protected:
    std::uint32_t write_key(std::uint8_t index, const char* key)
    {
        ComParam wanted = request(code::kWritePresetKey);
        preset_key_record::index.set(wanted, index);
        preset_key_record::key.set(wanted, key);
        return ask(wanted);
    }
    bool answer_has(const std::string& text) const
    {
        const auto* end = std::end(answer.record.bytes);
        return std::search(std::begin(answer.record.bytes), end, text.begin(), text.end()) != end;
    }
};

struct KeyCase {
    const char* name;
    std::uint8_t index;
    const char* key;
    std::uint32_t status;
    int octets;
};
constexpr KeyCase kKeyCases[] = {
    {"Short", 1, "0A-1b-2C-3d-4E", kStatusOk, 5},
    {"Long", 4, "00-01-02-03-04-05-06-07-08-09-0a-0b-0c", kStatusOk, 13},
    {"Forgotten", 1, "", kStatusOk, 0},
    {"FourOctets", 1, "0a-1b-2c-3d", kStatusValueRefused, 0},
    {"NoHex", 1, "0a-1b-2c-3d-4g", kStatusValueRefused, 0},
    {"NoDashes", 1, "0a1b2c3d4e5f60", kStatusValueRefused, 0},
    {"IndexZero", 0, "0a-1b-2c-3d-4e", kStatusUnknownName, 0},
    {"IndexFive", 5, "0a-1b-2c-3d-4e", kStatusUnknownName, 0},
};
TEST_F(EngineeringArea, APresetKeyIsKeptAndNeverAnswered)
{
    for (const KeyCase& each : kKeyCases) {
        EXPECT_EQ(write_key(each.index, each.key), each.status) << each.name;
        if (*each.key) {
            EXPECT_FALSE(answer_has(each.key)) << each.name;
        }
        ASSERT_EQ(ask(code::kReadPresetKey), kStatusOk);
        if (each.status == kStatusOk) {
            EXPECT_EQ(preset_key_record::length[each.index - 1].get(answer.record), each.octets) << each.name;
        }
        EXPECT_FALSE(answer_has("-0")) << each.name;
    }
    start();
    ask(code::kReadPresetKey);
    EXPECT_EQ(preset_key_record::length[3].get(answer.record), 13);
}

TEST_F(EngineeringArea, TheBaseRegisterShowsTheLanUntilItIsWritten)
{
    machine.interfaces = {interface_named("eth0", 1)};
    ComParam wanted = to_write(code::kReadMacRegister, code::kWriteMacRegister);
    EXPECT_EQ(base_register_record::mac.get(answer.record)[5], 1);
    EXPECT_EQ(base_register_record::signatureCheck.get(answer.record), 1);

    base_register_record::signatureCheck.set(wanted, 0);
    ASSERT_EQ(ask(wanted), kStatusOk);
    machine.interfaces = {interface_named("eth0", 9)};
    ask(code::kReadMacRegister);
    EXPECT_EQ(base_register_record::mac.get(answer.record)[5], 9) << "nothing was written yet";
    EXPECT_EQ(base_register_record::signatureCheck.get(answer.record), 0);

    base_register_record::mac.set(wanted, "\2\0\0\0\0\x77");
    base_register_record::macWritten.set(wanted, 1);
    ASSERT_EQ(ask(wanted), kStatusOk);
    start();
    ask(code::kReadMacRegister);
    EXPECT_EQ(base_register_record::mac.get(answer.record)[5], 0x77);
}

TEST_F(EngineeringArea, TheRegulatoryDomainIsTheFirstRadios)
{
    ComParam wanted = request(code::kWriteRegDomain);
    reg_domain_record::domain.set(wanted, wireless_record::kJapan);
    ASSERT_EQ(ask(wanted), kStatusOk);
    ask(code::kReadWirelessSettings);
    EXPECT_EQ(wireless_record::domain.get(answer.record), wireless_record::kJapan);
    ask(code::kReadRegDomain);
    EXPECT_EQ(reg_domain_record::domain.get(answer.record), wireless_record::kJapan);

    ComParam radio = request(code::kReadWirelessPort);
    wireless_port_record::radio.set(radio, "radio1");
    ask(radio);
    radio = answer.record;
    record::code.set(radio, code::kWriteWirelessPort);
    wireless_port_record::mode.set(radio, 2);
    wireless_port_record::channel.set(radio, 14);
    ASSERT_EQ(ask(radio), kStatusOk);
    for (const std::uint16_t refused : {wireless_record::kFcc, wireless_record::Domain{0x11}}) {
        reg_domain_record::domain.set(wanted, refused);
        EXPECT_NE(ask(wanted), kStatusOk) << refused;
    }
    ask(code::kReadRegDomain);
    EXPECT_EQ(reg_domain_record::domain.get(answer.record), wireless_record::kJapan);

    profile.radios.clear();
    start();
    EXPECT_EQ(ask(code::kReadRegDomain), kStatusNoDevice);
}

TEST_F(EngineeringArea, ABridgeThatIsNotThereIsSaid)
{
    for (const char* name : {"", "br-nowhere", "../../etc", "a-name-longer-than-any"}) {
        profile.bridge = name;
        start();
        EXPECT_EQ(ask(code::kReadBridgeTable), kStatusUnknownInterface) << name;
        EXPECT_EQ(ask(code::kWriteBridge), kStatusUnknownInterface) << name;
    }
}
}  // namespace
