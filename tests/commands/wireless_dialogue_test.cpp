#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

#include "commands/running_action.h"
#include "commands/service_stand_in.h"
#include "service/client.h"
#include "service/fields/wireless_settings.h"
#include "values/wep_key.h"

namespace {
using namespace wireless_record;

constexpr std::uint32_t kSetPortWlan = 53;

class WirelessDialogue : public testing::Test {
protected:
    WirelessDialogue()
    {
        networkName.set(stored, "office");
        domain.set(stored, wireless_record::kFcc);
        channel.set(stored, 6);
        keyLength.set(stored, k64Bit);
        beaconInterval.set(stored, 100);
        rtsThreshold.set(stored, 2347);
        fragmentThreshold.set(stored, 2346);
        dtimInterval.set(stored, 1);
        service_stand_in::reset([this](ComParam& record, std::string&) {
            const bool isRead = record::code.get(record) == code::kReadWirelessSettings;
            if (isRead)
                record = stored;
            else
                stored = record;
            record::status.set(record, 0);
            return std::uint32_t{0};
        });
        std::memset(&usrComParam, 0, sizeof usrComParam);
    }

    std::string text_of(const TextField& field) { return field.get(stored); }
    std::string key_of(unsigned n, std::size_t bytes) const
    {
        return {reinterpret_cast<const char*>(stored.bytes + key[n].at.offset), bytes};
    }
    static bool nothing_is_remembered()
    {
        return std::ranges::all_of(std::initializer_list<ComParam*>{&usrComParam, &wizardParam, &oldWizardParam},
                                   [](const ComParam* record) {
                                       const auto* keys = record->bytes + keyType[0].at.offset;
                                       return std::all_of(keys, record->bytes + hidden.at.offset,
                                                          [](unsigned char byte) { return byte == 0; });
                                   });
    }

    ComParam stored{};
    RunningAction action{kSetPortWlan};
};

TEST_F(WirelessDialogue, EmptyAnswersWriteNothing)
{
    EXPECT_EQ(action.play({"", "", "", "", "", "", "", "", ""}),
              " enter network name (office): "
              " disable SSID broadcasting (no, yes/no): "
              " select regulatory domain (fcc, fcc/etsi/france/spain/japan): "
              " enter channel number (6, 1-11): "
              " enable WEP encryption (no, yes/no): "
              " enter rts/cts threshold (2347, 256-2432): "
              " enter fragment threshold (2346, 256-2346): "
              " enter beacon interval (mini-seconds) (100, 1-1000): "
              " enter DTIM interval (1, 1-65535): ");
    EXPECT_EQ(action.call.stage, 0u);
    EXPECT_EQ(service_stand_in::codes_sent(), (std::vector<std::uint16_t>{code::kReadWirelessSettings}));
    EXPECT_EQ(service_stand_in::unreleased(), 0);
}

TEST_F(WirelessDialogue, StoresWhatIsAnswered)
{
    action.play({"two words", "Y", "ja", "14", "n", "0", "256", "20", "255"});
    EXPECT_EQ(text_of(networkName), "two words");
    EXPECT_EQ(hidden.get(stored), 1);
    EXPECT_EQ(domain.get(stored), wireless_record::kJapan);
    EXPECT_EQ(channel.get(stored), 14);
    EXPECT_EQ(keyIndex.get(stored), 0);
    EXPECT_EQ(rtsThreshold.get(stored), 0u);
    EXPECT_EQ(fragmentThreshold.get(stored), 256u);
    EXPECT_EQ(beaconInterval.get(stored), 20u);
    EXPECT_EQ(dtimInterval.get(stored), 255u);
}

struct DomainCase {
    const char* name;
    std::uint16_t code;
    const char *shown, *range, *taken, *refused;
};
// clang-format off
constexpr DomainCase kDomains[] = {
    {"Fcc",     0x10, "fcc",    "1-11",  "11", "12"},
    {"Etsi",    0x30, "etsi",   "1-13",  "13", "14"},
    {"Japan",   0x42, "japan",  "1-13",  "14", "15"},
    {"Unknown", 0x99, "fcc",    "1-11",  "1",  "six"},
};
// clang-format on
TEST_F(WirelessDialogue, TheDomainDecidesTheChannels)
{
    for (const DomainCase& c : kDomains) {
        domain.set(stored, c.code);
        channel.set(stored, 6);
        RunningAction each{kSetPortWlan};
        const std::string question = std::string(" enter channel number (6, ") + c.range + "): ";
        const std::string shown = std::string(" select regulatory domain (") + c.shown;
        EXPECT_NE(each.play({"", ""}).find(shown), std::string::npos) << c.name;
        EXPECT_EQ(each.answer(""), question) << c.name;
        EXPECT_EQ(each.answer(c.refused),
                  " Error: Channel number should follow the range in the selected domain\a\n" + question)
            << c.name;
        EXPECT_EQ(each.answer(c.taken), " enable WEP encryption (no, yes/no): ") << c.name;
        for (int i = 0; i < 5; i++) each.answer("");
        EXPECT_EQ(channel.get(stored), std::atoi(c.taken)) << c.name;
    }
}

TEST_F(WirelessDialogue, YesToWepMakesKeyOneActive)
{
    keyIndex.set(stored, 3);
    action.play({"", "", "", ""});
    EXPECT_EQ(action.answer("yes"), " select WEP key length (64, 64/128/152): ");
    EXPECT_EQ(action.answer(""), " use passphrase to generate key (no, yes/no): ");
    for (const char* each : {"", "k1", "", "sixteen letters!", "k4", "", "", "", "", ""}) action.answer(each);
    EXPECT_EQ(keyIndex.get(stored), 1);
    EXPECT_EQ(text_of(key[0]), "k1");
    EXPECT_EQ(text_of(key[2]), "sixteen letters!");
    EXPECT_EQ(keyType[0].get(stored), k64Bit);
    EXPECT_EQ(keyType[1].get(stored), 0) << "its key was not typed";

    EXPECT_TRUE(nothing_is_remembered());
}

// The validator counts bytes and the handler compares bits: whatever is typed ends as the code of 64 bits.
TEST_F(WirelessDialogue, AnyAcceptedLengthGivesFourShortKeys)
{
    std::memset(stored.bytes + key[0].at.offset, 0xEE, key[0].at.width);
    unsigned char generated[kWepKeys * kWep64KeySize];
    wep_keygen64("secret", generated);
    for (const char* length : {"64", "128"}) {
        keyLength.set(stored, k128Bit);
        RunningAction each{kSetPortWlan};
        each.play({"", "", "", "", "yes"});
        EXPECT_EQ(each.answer("152"),
                  " Error: WEP key length should be 40 or 128\a\n select WEP key length (128, 64/128/152): ");
        each.answer(length);
        EXPECT_EQ(each.answer("yes"), std::string(" enter Passphrase (") +
                                          (passphrase.length(stored) ? passphrase.get(stored) : "Unspecified") + "): ");
        each.answer("secret");
        for (int i = 0; i < 5; i++) each.answer("");
        EXPECT_EQ(keyLength.get(stored), k64Bit) << length;
        for (unsigned n = 0; n < kWepKeys; n++) {
            EXPECT_EQ(keyType[n].get(stored), wireless_record::kHex64) << length << n;
            EXPECT_EQ(key_of(n, kWep64KeySize),
                      std::string(reinterpret_cast<char*>(generated) + n * kWep64KeySize, kWep64KeySize));
        }
        EXPECT_EQ(key_of(0, 17).substr(kWep64KeySize), std::string(12, '\xEE')) << "the rest of the field stays";
    }
}

TEST_F(WirelessDialogue, AStoredLengthDecidesTheGeneratedKeys)
{
    keyIndex.set(stored, 1);
    keyLength.set(stored, k128Bit);
    action.play({"", "", "", "", "", "", "yes", "secret", "", "", "", "", ""});
    unsigned char generated[kWep128KeySize];
    wep_keygen128("secret", generated);
    for (unsigned n = 0; n < kWepKeys; n++) {
        EXPECT_EQ(keyType[n].get(stored), wireless_record::kHex128);
        EXPECT_EQ(key_of(n, kWep128KeySize), std::string(reinterpret_cast<char*>(generated), kWep128KeySize));
    }
    EXPECT_EQ(text_of(passphrase), "secret");
}
}  // namespace
