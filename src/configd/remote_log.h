// Sends log entries to a syslog server (RFC 5424 over UDP). Nothing waits for it: an entry that cannot go out at once,
// or that nobody receives, is lost.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct RemoteServer {
    std::uint32_t address = 0;  // host order; 0: nothing is sent
    std::uint16_t port = 514;
    std::string sender;  // the name that entries are signed with
};

struct RemoteEntry {
    std::int64_t time;  // seconds since the epoch
    int level;
    std::string_view facility, text;
};

std::string syslog_message(const RemoteEntry& entry, std::string_view sender);
void send_to(const RemoteServer& server, const RemoteEntry& entry);
