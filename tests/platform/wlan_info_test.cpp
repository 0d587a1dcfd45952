#include <gtest/gtest.h>
#include <set>
#include <string>

#include "platform/wlan_info.h"

namespace {
TEST(WlanInfo, EveryDomainHasCountriesAndModes)
{
    std::set<std::uint32_t> seen;
    for (std::size_t i = 0; const std::uint32_t domain = wlanGetDomain(i); i++) {
        EXPECT_TRUE(seen.insert(domain).second);
        EXPECT_NE(wlanGetCountryName(domain), nullptr);
        WlanModeInfo modes[WLAN_MODES];
        const std::size_t count = wlanGetModeInfoList(domain, modes, WLAN_MODES);
        std::set<std::string> names;
        for (std::size_t j = 0; j < count; j++) {
            EXPECT_TRUE(names.insert(modes[j].name).second) << modes[j].name;
            for (std::size_t k = 0; k < modes[j].ranges; k++) {
                const WlanChannels& range = modes[j].channels[k];
                EXPECT_LE(range.first, range.last);
                EXPECT_EQ((range.last - range.first) % range.step, 0) << domain << modes[j].name;
            }
        }
        EXPECT_TRUE(names.contains("11b/g") && names.contains("11a")) << domain;
    }
    EXPECT_EQ(seen, (std::set<std::uint32_t>{0x10, 0x30, 0x31, 0x32, 0x42}));
}

TEST(WlanInfo, KnowsNothingOfOtherDomains)
{
    WlanModeInfo modes[1];
    for (const std::uint32_t domain : {0u, 0x11u, 0xFFFFFFFFu}) {
        EXPECT_EQ(wlanGetCountryName(domain), nullptr);
        EXPECT_EQ(wlanGetModeInfoList(domain, modes, 1), 0u);
    }
    EXPECT_EQ(wlanGetModeInfoList(0x10, modes, 1), 1u) << "never more than there is room for";
}
}  // namespace
