// Device profiles: what a file may say, and that a bad one changes nothing.
#include <algorithm>
#include <gtest/gtest.h>

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
TEST(Profile, ABadOneIsRefusedWithAReasonAndChangesNothing)
{
    for (const RefusedCase& each : kRefused) {
        Profile profile = built_in_profile();
        profile.description = "as before";
        std::string why;
        EXPECT_FALSE(load(each.text, profile, why)) << each.name;
        EXPECT_NE(why.find(each.why), std::string::npos) << each.name << why;
        EXPECT_EQ(why.find('\n'), std::string::npos) << each.name << why;
        EXPECT_EQ(profile.description, "as before") << each.name;
        EXPECT_EQ(profile.ports.size(), 3u) << each.name;
    }
}

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
    EXPECT_EQ(profile.restart, builtIn.restart);
    EXPECT_EQ(profile.clock, builtIn.clock);
    EXPECT_EQ(profile.manageAddresses, builtIn.manageAddresses);
    EXPECT_EQ(profile.resolver, builtIn.resolver);
    const auto same = [](const ProfilePort& a, const ProfilePort& b) {
        return a.interface == b.interface && a.name == b.name && a.role == b.role && a.kind == b.kind && a.mac == b.mac;
    };
    EXPECT_TRUE(std::ranges::equal(profile.ports, builtIn.ports, same));
    EXPECT_EQ(profile.radios.size(), builtIn.radios.size());
}
}  // namespace
