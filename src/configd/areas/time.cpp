// The clock, the time zone and the NTP client.
#include "configd/areas/time.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdlib>
#include <cstring>

#include "configd/areas/areas.h"
#include "configd/areas/ipv4.h"
#include "service/codes.h"
#include "service/fields/time.h"
#include "service/time_zones.h"

namespace {
using namespace time_record;

// What the device's clock shows beside the machine's, where the profile leaves the machine's alone. No record has it.
constexpr Field<std::int32_t> kOffset{12};

constexpr auto kZones = [] {
    std::array<Choice, tzFileName.size() + 1> zones{};
    zones[0] = {static_cast<std::uint16_t>(kZoneNotSet), "not set"};
    for (std::uint32_t i = 0; i < tzFileName.size(); i++) zones[i + 1] = {i, tzFileName[i].display};
    return zones;
}();
constexpr Choice kServerKinds[] = {{0, "name"}, {1, "address"}};

bool is_host_name(const char* text) { return !std::strchr(text, ' '); }

// A client that is to run needs a server.
ServiceStatus check(const unsigned char* image)
{
    const bool byAddress = serverByAddress.get(image) != 0;
    const bool hasServer = byAddress ? serverAddress.get(image) != 0 : serverName.length(image) != 0;
    return ntpEnabled.get(image) && !hasServer ? kStatusNoTimeServer : kStatusOk;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::choice ("zone",               zone,            kZones, kZones[0].value),
    row::flag   ("ntp_enabled",        ntpEnabled,      false),
    row::choice ("ntp_server_by",      serverByAddress, kServerKinds, 0),
    row::text   ("ntp_server_name",    serverName,      {.factory = "pool.ntp.org", .takes = is_host_name}),
    row::address("ntp_server_address", serverAddress,   0, is_host_or_none),
    row::number ("ntp_interval_hours", interval,        {.min = 1, .max = 720, .factory = 24}),
});
constexpr auto kZoneOnly = std::span(kRows).first<1>();
constexpr auto kOffsetRows = std::to_array<Setting>({
    row::number ("offset_seconds", kOffset, {.min = INT32_MIN, .max = INT32_MAX, .factory = 0}),
});
constexpr Section kSections[] = {section("time", "", kRows, check), section("clock", "", kOffsetRows)};
constexpr const Section& kTime = kSections[0];
constexpr const Section& kClock = kSections[1];
// clang-format on

bool sets_machine(const Service& service) { return service.profile.clock == ClockMeans::kDevice; }

std::int64_t read_clock(const Service& service)
{
    const std::int64_t machine = service.device.read_clock();
    return sets_machine(service) ? machine : machine + kOffset.get(service.store.running().values(kClock).data());
}

ServiceStatus read_time(Call& call)
{
    const std::int64_t seconds = std::clamp<std::int64_t>(read_clock(call.service), 0, UINT32_MAX);
    now.set(call.answer.record, static_cast<std::uint32_t>(seconds));
    return read_section(call);
}

ServiceStatus move_offset(std::int64_t step, Bytes& clock)
{
    const std::int64_t offset = kOffset.get(clock.data()) + step;
    if (!takes_number(kOffsetRows[0], offset)) return kStatusValueRefused;
    kOffset.set(clock.data(), static_cast<std::int32_t>(offset));
    return kStatusOk;
}

ServiceStatus move_machine(const Service& service, std::int64_t step)
{
    return step == 0 ? kStatusOk : device::status_of(service.device.set_clock(service.device.read_clock() + step));
}

// A clock that shows the second already is left alone: a client that only changes the zone sends back the time that it
// has read a moment before.
std::int64_t step_to(const Service& service, std::uint32_t wanted)
{
    constexpr std::int64_t kMoment = 1;
    const std::int64_t step = wanted - read_clock(service);
    return std::abs(step) <= kMoment ? 0 : step;
}

// In force as a whole, or not at all.
ServiceStatus put_in_force(Service& service, Configuration next, std::int64_t machineStep)
{
    const Configuration before = service.store.running();
    if (const ServiceStatus failed = service.store.change(std::move(next))) return failed;
    ServiceStatus status = device::status_of(apply_time_zone(service));
    if (status == kStatusOk) status = storage_status(apply_ntp(service));
    if (status == kStatusOk) status = move_machine(service, machineStep);
    if (status == kStatusOk) return kStatusOk;
    service.store.change(before);
    apply_time_zone(service);
    apply_ntp(service);
    return status;
}

ServiceStatus write_time(Call& call)
{
    Service& service = call.service;
    Configuration next = service.store.running();
    if (const ServiceStatus refused = take_request(call, kTime, kZoneOnly, next)) return refused;

    std::int64_t step = step_to(service, now.get(call.request));
    if (!sets_machine(service)) {
        if (const ServiceStatus refused = move_offset(step, next.values(kClock))) return refused;
        step = 0;
    }
    if (const ServiceStatus failed = put_in_force(service, std::move(next), step)) return failed;
    return read_time(call);
}

// With the zone: the console's dialogue of the NTP client asks for it too. The clock is none of this record's business.
ServiceStatus write_ntp_client(Call& call)
{
    Configuration next = call.service.store.running();
    if (const ServiceStatus refused = take_request(call, kTime, kRows, next)) return refused;
    if (const ServiceStatus failed = put_in_force(call.service, std::move(next), 0)) return failed;
    return read_time(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadTime,       .run = read_time,        .sections = {&kTime, 1}},
    {.code = code::kWriteTime,      .run = write_time,       .sections = {&kTime, 1}},
    {.code = code::kWriteNtpClient, .run = write_ntp_client, .sections = {&kTime, 1}},
};
// clang-format on
}  // namespace

const Area kTimeArea{.sections = kSections, .lists = {}, .operations = kOperations};

int apply_time_zone(const Service& service)
{
    if (service.profile.timeZone.empty()) return 0;
    const std::int16_t index = zone.get(service.store.running().values(kTime).data());
    const auto row = static_cast<std::size_t>(index == kZoneNotSet ? kZoneGmt : index);
    return service.device.set_time_zone(service.profile.timeZone.c_str(), tzTimeOffset[row]);
}

std::string ntp_rules(const Service& service)
{
    Bytes values = service.store.running().values(kTime);
    unsigned char* image = values.data();
    std::string rules = "# Made by configd of its settings.\n";
    if (!ntpEnabled.get(image)) return rules;

    const in_addr wire{htonl(serverAddress.get(image))};
    char address[INET_ADDRSTRLEN] = "";
    inet_ntop(AF_INET, &wire, address, sizeof address);
    constexpr std::uint32_t kSecondsOfHour = 3600;
    const std::string seconds = std::to_string(interval.get(image) * kSecondsOfHour);
    // The server's name last: whatever stands in it, no other line follows.
    return rules + "[Time]\nPollIntervalMinSec=" + seconds + "\nPollIntervalMaxSec=" + seconds +
           "\nNTP=" + (serverByAddress.get(image) ? address : serverName.get(image)) + "\n";
}

int apply_ntp(const Service& service) { return service.timeRules.write(ntp_rules(service)); }
