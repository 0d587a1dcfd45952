// The modes and channels that a radio may use in a regulatory domain.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <strings.h>

#include "platform/wlan_info.h"

class RadioModes {
public:
    explicit RadioModes(std::uint32_t domain) : count_(wlanGetModeInfoList(domain, modes_, WLAN_MODES)) {}

    std::span<const WlanModeInfo> list() const { return {modes_, count_}; }

    // nullptr: the domain has no mode of that name, in either case.
    const WlanModeInfo* named(const char* name) const
    {
        for (const WlanModeInfo& mode : list())
            if (strcasecmp(mode.name, name) == 0) return &mode;
        return nullptr;
    }

    // A mode that the list does not have is automatic: any of its modes.
    bool allow(std::uint8_t mode, unsigned channel) const
    {
        const auto is_it = [mode](const WlanModeInfo& each) { return each.mode == mode; };
        const bool automatic = std::ranges::none_of(list(), is_it);
        return std::ranges::any_of(list(), [=](const WlanModeInfo& each) {
            return (automatic || each.mode == mode) && has_channel(each, channel);
        });
    }

    static bool has_channel(const WlanModeInfo& mode, unsigned channel)
    {
        return std::ranges::any_of(std::span(mode.channels, mode.ranges), [channel](const WlanChannels& range) {
            return channel >= range.first && channel <= range.last && (channel - range.first) % range.step == 0;
        });
    }

private:
    WlanModeInfo modes_[WLAN_MODES];
    std::size_t count_;
};
