// What counters stood at when they were last cleared. The machine's own are never reset, for other programs read them
// too; what is shown is the difference. Kept in a file beside the running configuration, so that a restart of the
// service alone does not bring the old counts back, and the device starts both anew.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "configd/storage.h"

enum class Counted : std::uint8_t { kInterfaces, kClients };

class ClearedCounters {
public:
    using Values = std::vector<std::uint64_t>;
    using Group = std::map<std::string, Values>;  // by interface name, by MAC address

    ClearedCounters() = default;  // no file
    // Reads what the folder has; a file that cannot be understood counts as none.
    ClearedCounters(Storage storage, const std::string& folder);

    const Group& group(Counted what) const { return groups_[static_cast<std::size_t>(what)]; }

    // On a status other than kStatusOk the group is what it was.
    ServiceStatus set_group(Counted what, Group next);

    // What was counted since; a counter that began anew after the clearing counts as it stands.
    Values since(Counted what, const std::string& name, Values now) const;

private:
    using Groups = std::array<Group, 2>;
    int write(const Groups& groups) const;

    Storage storage_;
    std::string file_;
    Groups groups_;
};
