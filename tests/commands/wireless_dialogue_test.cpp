#include <algorithm>

#include "commands/command_session.h"
#include "service/fields/wireless_settings.h"
#include "values/wep_key.h"

namespace {
using namespace wireless_record;

constexpr std::uint32_t kSetPortWlan = 53;

class WirelessDialogue : public CommandSession {
protected:
    WirelessDialogue()
    {
        fill(stored, networkName, "office", domain, wireless_record::kFcc, channel, 6, keyLength, k64Bit,
             beaconInterval, 100, rtsThreshold, 2347, fragmentThreshold, 2346, dtimInterval, 1);
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

    ComParam& stored = record(code::kReadWirelessSettings);
    RunningAction action{kSetPortWlan};
};

TEST_F(WirelessDialogue, StoresWhatIsAnswered)
{
    const ComParam wanted = rewritten(code::kReadWirelessSettings, code::kWriteWirelessSettings, networkName,
                                      "two words", hidden, 1, domain, wireless_record::kJapan, channel, 14, keyIndex, 0,
                                      rtsThreshold, 0, fragmentThreshold, 256, beaconInterval, 20, dtimInterval, 255);
    action.play({"two words", "Y", "ja", "14", "n", "0", "256", "20", "255"});
    EXPECT_TRUE(was_sent(wanted));
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
        fill(stored, domain, c.code, channel, 6);
        RunningAction each{kSetPortWlan};
        const std::string question = std::string(" enter channel number (6, ") + c.range + "): ";
        const std::string shown = std::string(" select regulatory domain (") + c.shown;
        EXPECT_NE(each.play({"", ""}).find(shown), std::string::npos) << c.name;
        EXPECT_EQ(each.answer(""), question) << c.name;
        EXPECT_EQ(each.answer(c.refused),
                  refusal("Channel number should follow the range in the selected domain", question))
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
                  refusal("WEP key length should be 40 or 128", " select WEP key length (128, 64/128/152): "));
        each.answer(length);
        for (const char* text : {"yes", "secret", "", "", "", "", ""}) each.answer(text);
        EXPECT_EQ(keyLength.get(stored), k64Bit) << length;
        for (unsigned n = 0; n < kWepKeys; n++) {
            EXPECT_EQ(keyType[n].get(stored), wireless_record::kHex64) << length << n;
            EXPECT_EQ(key_of(n, kWep64KeySize),
                      std::string(reinterpret_cast<char*>(generated) + n * kWep64KeySize, kWep64KeySize));
        }
        EXPECT_EQ(key_of(0, 17).substr(kWep64KeySize), std::string(12, '\xEE')) << "the rest of the field stays";
    }
}

}  // namespace
