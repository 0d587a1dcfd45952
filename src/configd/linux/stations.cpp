#include "configd/linux/stations.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include "configd/linux/text_file.h"

namespace device {
namespace {
constexpr timeval kAnswerTime{.tv_sec = 1, .tv_usec = 0};
constexpr std::time_t kAllAnswersTime = 2;
constexpr std::size_t kLongestAnswer = 4096;  // hostapd's own limit

std::time_t monotonic_seconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec;
}

// A socket with an address of its own (the kernel picks one that needs no file), so that hostapd can answer. -1: errno.
int connect_to(const char* path)
{
    sockaddr_un server{};
    server.sun_family = AF_UNIX;
    if (std::snprintf(server.sun_path, sizeof server.sun_path, "%s", path) >= static_cast<int>(sizeof server.sun_path))
        return errno = ENAMETOOLONG, -1;
    const int client = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (client < 0) return -1;

    sockaddr_un own{};
    own.sun_family = AF_UNIX;
    setsockopt(client, SOL_SOCKET, SO_RCVTIMEO, &kAnswerTime, sizeof kAnswerTime);
    setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &kAnswerTime, sizeof kAnswerTime);
    if (bind(client, reinterpret_cast<const sockaddr*>(&own), sizeof own.sun_family) == 0 &&
        connect(client, reinterpret_cast<const sockaddr*>(&server), sizeof server) == 0)
        return client;
    const int error = errno;
    close(client);
    return errno = error, -1;
}

// 0 or an errno value.
int ask(int client, std::string_view command, char (&room)[kLongestAnswer], std::string_view& answer)
{
    if (send(client, command.data(), command.size(), MSG_NOSIGNAL) < 0) return errno;
    do {  // an event that hostapd reports to everybody starts with its level in "<>"
        const ssize_t got = recv(client, room, sizeof room, 0);
        if (got < 0) return errno;
        answer = {room, static_cast<std::size_t>(got)};
    } while (answer.starts_with('<'));
    return 0;
}

Station::State state_of(std::string_view flags)
{
    if (flags.find("[AUTHORIZED]") != flags.npos) return Station::State::kAuthorized;
    if (flags.find("[ASSOC]") != flags.npos) return Station::State::kAssociated;
    if (flags.find("[AUTH]") != flags.npos) return Station::State::kAuthenticated;
    return Station::State::kUnauthorized;
}

// The low 32 bits of the count, as the client table has room for.
std::uint32_t counter_of(std::string_view text)
{
    std::uint64_t count = 0;
    std::from_chars(text.data(), text.data() + text.size(), count);
    return static_cast<std::uint32_t>(count);
}

struct CounterName {
    std::string_view name;
    std::uint32_t Station::*counter;
};
constexpr CounterName kCounters[] = {
    {"tx_packets", &Station::txFrames},
    {"rx_packets", &Station::rxFrames},
    {"tx_bytes", &Station::txBytes},
    {"rx_bytes", &Station::rxBytes},
};

// The client's MAC in a line, then "name=value" lines.
bool parse_station(std::string_view answer, Station& station)
{
    station = {
        .mac = {}, .state = Station::State::kUnauthorized, .txFrames = 0, .rxFrames = 0, .txBytes = 0, .rxBytes = 0};
    if (!parse_mac(next_line(answer), station.mac)) return false;
    while (!answer.empty()) {
        const std::string_view line = next_line(answer);
        const std::size_t sign = line.find('=');
        if (sign == line.npos) continue;
        const std::string_view name = line.substr(0, sign), value = line.substr(sign + 1);
        if (name == "flags") station.state = state_of(value);
        const auto counter = std::ranges::find(kCounters, name, &CounterName::name);
        if (counter != std::end(kCounters)) station.*counter->counter = counter_of(value);
    }
    return true;
}

int walk(int client, std::vector<Station>& stations)
{
    const std::time_t end = monotonic_seconds() + kAllAnswersTime;
    char room[kLongestAnswer];
    std::string command = "STA-FIRST";
    while (stations.size() < kMaxStations) {
        std::string_view answer;
        if (const int error = ask(client, command, room, answer); error != 0) return error;
        Station station;
        if (!parse_station(answer, station)) return 0;  // no more of them
        stations.push_back(station);
        command = "STA-NEXT ";
        command += answer.substr(0, answer.find('\n'));
        if (monotonic_seconds() > end) return ETIMEDOUT;
    }
    return 0;
}
}  // namespace

int read_stations(const char* controlSocket, std::vector<Station>& stations)
{
    stations.clear();
    const int client = connect_to(controlSocket);
    if (client < 0) return errno;
    const int error = walk(client, stations);
    close(client);
    if (error != 0) stations.clear();
    return error;
}
}  // namespace device
