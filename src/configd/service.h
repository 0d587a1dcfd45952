// What the operations work on: the machine, what is known about it, and the configurations.
#pragma once

#include "configd/attempts.h"
#include "configd/cleared_counters.h"
#include "configd/interface_cache.h"
#include "configd/linux/device.h"
#include "configd/profile.h"
#include "configd/rule_file.h"
#include "configd/store.h"

struct Service {
    const Device& device;
    const Profile profile;
    Store store;
    ClearedCounters cleared{};
    RuleFile rules{};
    RuleFile dhcpRules{};
    RuleFile timeRules{};
    Attempts attempts{};
    mutable InterfaceCache interfaces{device};
};

// The software version as the console shows it.
inline constexpr char kSoftwareVersion[] = "1.08e01W";
