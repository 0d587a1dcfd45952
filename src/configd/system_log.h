// What the service keeps of what happened, and sends on to the remote server: the latest entries of every part of the
// device. Like the lines of configd/log.h, which come in here too, it belongs to the process.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "configd/remote_log.h"

// The parts of the device that report, in the order of the log message library.
enum class Facility : std::uint8_t {
    kSystem,
    kConsole,
    kConfig,
    kLogin,
    kKernel,
    kInterface,
    kBridge,
    kWireless,
    kWds,
    kWpa,
    kMacFilter,
    kRadius,
    kDhcp,
    kDhcpClient,
    kDns,
    kDdns,
    kNtp,
    kHttp,
    kTelnet,
    kSnmp,
    kUpnp,
    kNat,
    kFilter,
    kRoute,
    kRip,
};
inline constexpr const char* kFacilityNames[] = {
    "system", "console",   "config", "login", "kernel", "interface", "bridge", "wireless", "wds",
    "wpa",    "macfilter", "radius", "dhcp",  "dhcpc",  "dns",       "ddns",   "ntp",      "http",
    "telnet", "snmp",      "upnp",   "nat",   "filter", "route",     "rip",
};
inline constexpr std::size_t kFacilities = 25;
static_assert(std::size(kFacilityNames) == kFacilities && static_cast<std::size_t>(Facility::kRip) == kFacilities - 1);

struct LogEntry {
    std::int64_t time;  // seconds since the epoch
    Facility facility;
    int level;  // LOG_ALERT to LOG_DEBUG
    std::string text;
};

// What is kept of each facility, and where else it goes.
struct LogRules {
    LogRules();                                       // as the factory has them
    std::array<std::uint8_t, kFacilities> logUpTo;    // a level; 0: nothing
    std::array<std::uint8_t, kFacilities> traceUpTo;  // the same for what trace() is told
    RemoteServer remote;
};

class SystemLog {
public:
    static constexpr std::size_t kCapacity = 512, kLongestText = 118;

    void follow(LogRules rules) { rules_ = std::move(rules); }
    void log(Facility facility, int level, std::string_view text);
    void trace(Facility facility, int level, std::string_view text);
    bool traces(Facility facility, int level) const
    {
        return level <= rules_.traceUpTo[static_cast<std::size_t>(facility)];
    }

    const std::deque<LogEntry>& entries() const { return entries_; }  // newest last

    // What the lines of log_line are about until the next call, and who asked for it; empty: nobody.
    void attribute_lines_to(Facility facility, std::string asker = {});
    Facility lines_facility() const { return lines_; }
    const std::string& asker() const { return asker_; }
    void line(int level, std::string_view text) { log(lines_, level, text); }

private:
    void keep(Facility facility, int level, std::string_view text);

    LogRules rules_;
    std::deque<LogEntry> entries_;
    Facility lines_ = Facility::kSystem;
    std::string asker_;
};

SystemLog& system_log();
