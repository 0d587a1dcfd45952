#include "configd/remote_log.h"

#include <algorithm>
#include <arpa/inet.h>
#include <ctime>
#include <sys/socket.h>
#include <syslog.h>
#include <unistd.h>

namespace {
// The facilities of this device lie above those that the protocol has: entries go out as local ones, and the message
// type names the facility.
constexpr int kOnTheWire = LOG_LOCAL0;

// A name without blanks, or the protocol's dash for none.
std::string token(std::string_view text)
{
    std::string word(text.substr(0, 32));
    std::ranges::replace_if(
        word, [](char c) { return c <= ' ' || c > '~'; }, '-');
    return word.empty() ? "-" : word;
}
}  // namespace

std::string syslog_message(const RemoteEntry& entry, std::string_view sender)
{
    const std::time_t time = entry.time;
    std::tm utc{};
    gmtime_r(&time, &utc);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%dT%H:%M:%SZ", &utc);

    std::string message = "<" + std::to_string(kOnTheWire | entry.level) + ">1 " + stamp + " " + token(sender);
    message += " router-manager - " + token(entry.facility) + " - ";
    return message.append(entry.text);
}

void send_to(const RemoteServer& server, const RemoteEntry& entry)
{
    if (server.address == 0) return;
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0) return;
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(server.port);
    to.sin_addr.s_addr = htonl(server.address);
    const std::string message = syslog_message(entry, server.sender);
    sendto(socket, message.data(), message.size(), MSG_DONTWAIT | MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&to),
           sizeof to);
    close(socket);
}
