// The two RADIUS servers, and what holds for both of them: each record carries that too, whichever entry it is of.
#include "service/fields/radius.h"

#include "configd/areas/areas.h"
#include "configd/log.h"
#include "service/codes.h"

namespace {
using namespace radius_record;

constexpr std::uint16_t kAuthenticationPort = 1812;

// None yet, or an address that a server can have.
bool is_server(std::int64_t value)
{
    constexpr std::int64_t kThisNetwork = 0, kLoopback = 127, kMulticast = 224;
    const std::int64_t first = value >> 24;
    return value == 0 || (first != kThisNetwork && first != kLoopback && first < kMulticast);
}

// clang-format off
constexpr auto kEntryRows = std::to_array<Setting>({
    row::flag   ("enabled", enabled, false),
    row::address("address", address, 0, is_server),
    row::number ("port",    port,    {.min = 1, .max = 65535, .factory = kAuthenticationPort}),
    row::secret ("secret",  secret),
});
constexpr auto kSharedRows = std::to_array<Setting>({
    row::number("reattempt_minutes",  reattempt,  {.min = 5, .max = 60, .factory = 60}),
    row::number("retries",            retries,    {.min = 1, .max = 5,  .factory = 3}),
    row::flag  ("mac_access_control", macControl, false),
});
// clang-format on
constexpr auto kReattemptOnly = std::span(kSharedRows).first<1>();

constexpr Section kSections[] = {
    section("radius", "primary", kEntryRows),
    section("radius", "secondary", kEntryRows),
    section("radius", "both", kSharedRows),
};
constexpr auto kEntries = std::span(kSections).first<2>();
constexpr const Section& kBoth = kSections[2];

ServiceStatus read_radius(Call& call)
{
    if (const ServiceStatus refused = read_section(call)) return refused;
    give_values(kBoth, call.service.store.running().values(kBoth), call.answer.record);
    return kStatusOk;
}

ServiceStatus write_radius(Call& call)
{
    const Section* entry = requested_section(call);
    if (!entry) return kStatusUnknownName;
    Configuration next = call.service.store.running();
    if (const ServiceStatus refused = take_request(call, *entry, entry->settings, next)) return refused;
    if (const ServiceStatus refused = take_request(call, kBoth, kBoth.settings, next)) return refused;
    if (const ServiceStatus failed = call.service.store.change(std::move(next))) return failed;

    const ServiceStatus status = read_radius(call);
    secret.clear(call.answer.record);  // the one who wrote it has it
    return status;
}

ServiceStatus write_reattempt(Call& call) { return write_rows(call, kBoth, kReattemptOnly); }

// A setting is in force as soon as it is stored; the authenticator of the device learns from the log that there is
// something to fetch.
ServiceStatus apply(Call& call)
{
    const Section* entry = requested_section(call);
    if (!entry) return kStatusUnknownName;
    const bool on = enabled.get(call.service.store.running().values(*entry).data()) != 0;
    log_line(LOG_NOTICE, "RADIUS server %s: settings in force, %s", entry->name, on ? "enabled" : "disabled");
    return kStatusOk;
}

ServiceStatus delete_entry(Call& call)
{
    const Section* entry = requested_section(call);
    if (!entry) return kStatusUnknownName;
    Bytes unset;
    set_factory(*entry, unset);
    Configuration next = call.service.store.running();
    if (next.values(*entry) == unset) return kStatusUnknownName;
    next.values(*entry) = std::move(unset);
    return call.service.store.change(std::move(next));
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadRadius,           .run = read_radius,  .sections = kEntries, .name = name.at},
    {.code = code::kWriteRadius,          .run = write_radius, .sections = kEntries, .name = name.at},
    {.code = code::kWriteRadiusReattempt, .run = write_reattempt},
    {.code = code::kApplyRadius,          .run = apply,        .sections = kEntries, .name = name.at},
    {.code = code::kDeleteRadius,         .run = delete_entry, .sections = kEntries, .name = name.at},
};
// clang-format on
}  // namespace

const Area kRadiusArea{.sections = kSections, .lists = {}, .operations = kOperations};
