// Device profiles: what a file may say, and that a bad one changes nothing.
#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <random>

#include "configd/linux/temporary_file.h"
#include "configd/profile.h"

namespace {
bool load(const std::string& text, Profile& profile, std::string& why)
{
    const TemporaryFile file(text);
    return load_profile(file.path(), profile, why);
}

struct RefusedCase {
    const char* name;
    std::string text;
    const char* why;  // a part of the reason
};
void PrintTo(const RefusedCase& c, std::ostream* out) { *out << c.name; }
const RefusedCase kRefused[] = {
    {"Empty", "", "line 1"},
    {"CutShort", "{\"ports\": [", "line 1"},
    {"NoObject", "[]", "object"},
    {"KeyMisspelt", "{\"restrat\": \"reload\"}", "restrat"},
    {"KeyTwice", "{\"clock\": \"offset\", \"clock\": \"device\"}", "duplicate"},
    {"WrongType", "{\"manageAddresses\": \"yes\"}", "true or false"},
    {"NoSuchChoice", "{\"restart\": \"never\"}", "\"restart\" has no such choice"},
    {"NulInText", "{\"description\": \"a\\u0000b\"}", "line 1"},
    {"EscapeInText", "{\"description\": \"\\u001b[2J\"}", "\"description\" holds a control character"},
    {"LongText", "{\"description\": \"" + std::string(112, 'x') + "\"}", "\"description\" is too long"},
    {"ListIsNone", "{\"ports\": {}}", "\"ports\" is no list"},
    {"PortWithoutInterface", "{\"ports\": [{\"name\": \"lan\"}]}", "ports[0]: "},
    {"PortIsAPath", "{\"ports\": [{\"interface\": \"a\"}, {\"interface\": \"../x\"}]}",
     "ports[1]: \"interface\" is no name"},
    {"LongInterface", "{\"ports\": [{\"interface\": \"0123456789abcdef\"}]}", "\"interface\" is too long"},
    {"InterfaceTwice",
     "{\"ports\": [{\"interface\": \"a\", \"name\": \"x\"}, {\"interface\": \"a\", \"name\": \"y\"}]}", "twice"},
    {"NameTwice", "{\"ports\": [{\"interface\": \"a\", \"name\": \"x\"}, {\"interface\": \"x\"}]}", "twice"},
    {"MulticastMac", "{\"ports\": [{\"interface\": \"a\", \"mac\": \"01:00:5e:00:00:01\"}]}", "ports[0]: \"mac\""},
    {"ShortMac", "{\"radios\": [{\"name\": \"radio1\", \"mac\": \"02:00\"}]}", "radios[0]: \"mac\""},
    {"ThreeRadios", "{\"radios\": [{\"name\": \"a\"}, {\"name\": \"b\"}, {\"name\": \"c\"}]}",
     "\"radios\" has too many"},
    {"ChannelTooHigh", "{\"radios\": [{\"name\": \"a\", \"channel\": 197}]}", "\"channel\" is out of range"},
    {"NegativeMode", "{\"radios\": [{\"name\": \"a\", \"mode\": -1}]}", "\"mode\" is out of range"},
    {"CounterTooHigh",
     "{\"radios\": [{\"name\": \"a\", \"clients\": [{\"mac\": \"02:00:5e:00:00:01\", \"rxBytes\": 4294967296}]}]}",
     "radios[0]: clients[0]: \"rxBytes\" is out of range"},
    {"VeryDeep", std::string(60000, '['), "depth"},
    {"VeryLarge", std::string(70000, ' ') + "{}", "too large"},
};
class RefusedProfile : public testing::TestWithParam<RefusedCase> {};
TEST_P(RefusedProfile, SaysWhyAndChangesNothing)
{
    Profile profile = built_in_profile();
    profile.description = "as before";
    std::string why;
    EXPECT_FALSE(load(GetParam().text, profile, why));
    EXPECT_NE(why.find(GetParam().why), std::string::npos) << why;
    EXPECT_EQ(why.find('\n'), std::string::npos) << why;
    EXPECT_EQ(profile.description, "as before");
    EXPECT_EQ(profile.ports.size(), 3u);
}
INSTANTIATE_TEST_SUITE_P(Files, RefusedProfile, testing::ValuesIn(kRefused),
                         [](const auto& c) { return c.param.name; });

TEST(Profile, KeepsTheBuiltInWhereTheFileIsSilent)
{
    Profile profile;
    std::string why;
    ASSERT_TRUE(load("{\"radios\": []}", profile, why)) << why;
    EXPECT_TRUE(profile.radios.empty());
    ASSERT_NE(port_of_role(profile, PortRole::kLan), nullptr);
    EXPECT_EQ(port_of_role(profile, PortRole::kLan)->interface, "eth0");
    EXPECT_EQ(port_of_interface(profile, "wlan0")->kind, device::Kind::kWireless);
    EXPECT_EQ(port_of_interface(profile, "wlan0")->mac, device::Mac{});
    EXPECT_EQ(profile.restart, RestartMeans::kDevice);
}

TEST(Profile, EntriesTakeSensibleDefaults)
{
    Profile profile;
    std::string why;
    ASSERT_TRUE(load("{\"ports\": [{\"interface\": \"ath0\", \"role\": \"wireless\"}],"
                     " \"radios\": [{\"name\": \"radio1\", \"clients\": [{\"mac\": \"02:00:5e:00:00:0a\"}]}]}",
                     profile, why))
        << why;
    EXPECT_EQ(profile.ports.at(0).name, "ath0");
    EXPECT_EQ(profile.ports.at(0).kind, device::Kind::kWireless);
    EXPECT_EQ(profile.radios.at(0).clients.at(0).state, device::Station::State::kAssociated);
    EXPECT_EQ(profile.radios.at(0).clients.at(0).mac, (device::Mac{0x02, 0x00, 0x5e, 0x00, 0x00, 0x0a}));
}

TEST(Profile, ShippedOnesLoad)
{
    Profile profile;
    std::string why;
    ASSERT_TRUE(load_profile(ROUTER_PROFILES "/access-point.json", profile, why)) << why;
    EXPECT_TRUE(profile.manageAddresses);
    EXPECT_EQ(profile.timeZone, "/etc/localtime");
    ASSERT_TRUE(load_profile(ROUTER_PROFILES "/development.json", profile, why)) << why;
    EXPECT_EQ(profile.restart, RestartMeans::kReload);
    EXPECT_EQ(profile.clock, ClockMeans::kOffset);
    EXPECT_EQ(profile.timeZone, "") << "the machine's zone is left alone";
    EXPECT_FALSE(profile.manageAddresses);
    EXPECT_EQ(profile.radios.size(), 2u);
    for (const ProfileRadio& radio : profile.radios) EXPECT_EQ(radio.mac[0] & 3, 2) << "locally administered";
}

TEST(Profile, NoDamageToAFileHurts)
{
    std::mt19937 random(20);
    const std::string good =
        "{\"ports\": [{\"interface\": \"a\", \"role\": \"lan\", \"mac\": \"02:00:5e:00:00:01\"}], \"radios\":"
        " [{\"name\": \"radio1\", \"channel\": 6, \"clients\": [{\"mac\": \"02:00:5e:00:00:02\"}]}]}";
    for (int i = 0; i < 500; i++) {
        std::string text = good;
        for (int j = 0; j < 3; j++) text[random() % text.size()] = static_cast<char>(random());
        text.resize(random() % 4 ? text.size() : random() % text.size());
        Profile profile;
        std::string why;
        const bool loaded = load(text, profile, why);
        EXPECT_EQ(why.empty(), loaded) << text;
    }
}
}  // namespace
