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
    {"KeyMisspelt", "{\"restrat\": \"reload\"}", "restrat"},
    {"KeyTwice", "{\"clock\": \"offset\", \"clock\": \"device\"}", "duplicate"},
    {"NoSuchChoice", "{\"restart\": \"never\"}", "\"restart\" has no such choice"},
    {"EscapeInText", "{\"description\": \"\\u001b[2J\"}", "\"description\" holds a control character"},
    {"PortIsAPath", "{\"ports\": [{\"interface\": \"a\"}, {\"interface\": \"../x\"}]}",
     "ports[1]: \"interface\" is no name"},
    {"NameTwice", "{\"ports\": [{\"interface\": \"a\", \"name\": \"x\"}, {\"interface\": \"x\"}]}", "twice"},
    {"MulticastMac", "{\"ports\": [{\"interface\": \"a\", \"mac\": \"01:00:5e:00:00:01\"}]}", "ports[0]: \"mac\""},
    {"ThreeRadios", "{\"radios\": [{\"name\": \"a\"}, {\"name\": \"b\"}, {\"name\": \"c\"}]}",
     "\"radios\" has too many"},
    {"CounterTooHigh",
     "{\"radios\": [{\"name\": \"a\", \"clients\": [{\"mac\": \"02:00:5e:00:00:01\", \"rxBytes\": 4294967296}]}]}",
     "radios[0]: clients[0]: \"rxBytes\" is out of range"},
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

TEST(Profile, ShippedOnesLoad)
{
    Profile profile;
    std::string why;
    ASSERT_TRUE(load_profile(ROUTER_PROFILES "/access-point.json", profile, why)) << why;
    EXPECT_TRUE(profile.manageAddresses);
    EXPECT_EQ(profile.timeZone, "/run/router-manager/localtime") << "a folder that the service may write";
    EXPECT_EQ(profile.resolver, "/run/router-manager/resolv.conf");
    ASSERT_TRUE(load_profile(ROUTER_PROFILES "/development.json", profile, why)) << why;
    EXPECT_EQ(profile.restart, RestartMeans::kReload);
    EXPECT_EQ(profile.clock, ClockMeans::kOffset);
    EXPECT_EQ(profile.timeZone, "") << "the machine's zone is left alone";
    EXPECT_FALSE(profile.manageAddresses);
    EXPECT_EQ(profile.radios.size(), 2u);
    for (const ProfileRadio& radio : profile.radios) EXPECT_EQ(radio.mac[0] & 3, 2) << "locally administered";
}

// What an administrator edits begins as what the service does without a file.
TEST(Profile, InstalledOneIsTheBuiltInOne)
{
    const Profile builtIn = built_in_profile();
    Profile profile;
    std::string why;
    ASSERT_TRUE(load_profile(ROUTER_PROFILES "/default.json", profile, why)) << why;
    EXPECT_EQ(profile.description, builtIn.description);
    EXPECT_EQ(profile.restart, builtIn.restart);
    EXPECT_EQ(profile.clock, builtIn.clock);
    EXPECT_EQ(profile.manageAddresses, builtIn.manageAddresses);
    EXPECT_EQ(profile.bridge + profile.leases + profile.hostapd + profile.timeZone, "");
    EXPECT_EQ(profile.resolver, builtIn.resolver);
    const auto same = [](const ProfilePort& a, const ProfilePort& b) {
        return a.interface == b.interface && a.name == b.name && a.role == b.role && a.kind == b.kind && a.mac == b.mac;
    };
    EXPECT_TRUE(std::ranges::equal(profile.ports, builtIn.ports, same));
    ASSERT_EQ(profile.radios.size(), 1u);
    EXPECT_EQ(profile.radios[0].interface, builtIn.radios[0].interface);
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
