// The system log: how much it keeps, of what, and the server that gets it too.
#include "configd/areas/system_log.h"

#include <algorithm>
#include <cstring>
#include <syslog.h>
#include <utility>

#include "configd/areas/areas.h"
#include "service/codes.h"
#include "service/fields/system.h"
#include "service/fields/system_log.h"

namespace {
using namespace system_log_record;

// The local machine may be its own server.
constexpr bool is_server_or_unset(std::int64_t address)
{
    constexpr std::int64_t kThisNetwork = 0, kMulticast = 224;
    return address == 0 || (address >> 24 != kThisNetwork && address >> 24 < kMulticast);
}

ServiceStatus check(const unsigned char* image)
{
    const bool nowhere = remoteEnabled.get(image) != 0 && remoteAddress.get(image) == 0;
    return nowhere ? kStatusValueRefused : kStatusOk;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::number ("level",          level,         {.min = LOG_ALERT, .max = LOG_DEBUG, .factory = LOG_INFO}),
    row::flag   ("remote_enabled", remoteEnabled, false),
    row::address("remote_server",  remoteAddress, 0, is_server_or_unset),
});
// clang-format on
constexpr auto kLevelOnly = std::span(kRows).first<1>();
constexpr auto kRemoteOnly = std::span(kRows).subspan<1>();

constexpr Choice kStates[] = {
    {kFacilityOff, "off"}, {1, "1"}, {2, "2"}, {3, "3"}, {4, "4"}, {5, "5"}, {6, "6"}, {7, "7"}, {kFacilityOn, "on"},
};

// One byte a facility, in no record: the table of facilities carries them.
constexpr std::size_t kFirstState = 64;
template <std::size_t Index> constexpr Field<std::uint8_t> kState{kFirstState + Index};
template <std::size_t... Index> constexpr auto state_rows(std::uint8_t factory, std::index_sequence<Index...>)
{
    return std::array{row::choice(kFacilityNames[Index], kState<Index>, kStates, factory)...};
}
constexpr auto kLogRows = state_rows(kFacilityOn, std::make_index_sequence<kFacilities>{});
constexpr auto kTraceRows = state_rows(kFacilityOff, std::make_index_sequence<kFacilities>{});

constexpr Section kSections[] = {
    section("system_log", "", kRows, check),
    section("log_facilities", "", kLogRows),
    section("trace_facilities", "", kTraceRows),
};
constexpr const Section &kLog = kSections[0], &kLogStates = kSections[1], &kTraceStates = kSections[2];

std::uint8_t state_of(const Service& service, const Section& states, std::size_t facility)
{
    return service.store.running().values(states)[kFirstState + facility];
}

ServiceStatus write_level(Call& call)
{
    if (const ServiceStatus refused = write_rows(call, kLog, kLevelOnly)) return refused;
    return read_section(call);
}

ServiceStatus write_remote(Call& call)
{
    if (const ServiceStatus refused = write_rows(call, kLog, kRemoteOnly)) return refused;
    return read_section(call);
}

ServiceStatus write_state(Call& call, const Section& states)
{
    Facility facility;
    if (!facility_of_bit(facility_request::facility.get(call.request), facility)) return kStatusUnknownName;
    const std::uint8_t state = facility_request::state.get(call.request);
    if (state > kFacilityOn) return kStatusValueRefused;
    Configuration next = call.service.store.running();
    next.values(states)[kFirstState + static_cast<std::size_t>(facility)] = state;
    return call.service.store.change(std::move(next));
}

ServiceStatus write_log(Call& call) { return write_state(call, kLogStates); }
ServiceStatus write_trace(Call& call) { return write_state(call, kTraceStates); }

ServiceStatus read_facilities(Call& call)
{
    for (std::size_t i = 0; i < kFacilities; i++) {
        unsigned char entry[facility_entry::kSize] = {};
        facility_entry::facility.set(entry, facility_bit(static_cast<Facility>(i)));
        facility_entry::log.set(entry, state_of(call.service, kLogStates, i));
        facility_entry::trace.set(entry, state_of(call.service, kTraceStates, i));
        call.answer.table.insert(call.answer.table.end(), std::begin(entry), std::end(entry));
    }
    return kStatusOk;
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadSystemLog,      .run = read_section, .sections = kSections},
    {.code = code::kWriteLogLevel,      .run = write_level,  .sections = kSections},
    {.code = code::kWriteSyslog,        .run = write_remote, .sections = kSections},
    {.code = code::kWriteLogFacility,   .run = write_log},
    {.code = code::kWriteTraceFacility, .run = write_trace},
    {.code = code::kReadLogFacilities,  .run = read_facilities},
};
// clang-format on

// The name of the system signs what is sent on; its own area has it.
std::string system_name(const Service& service)
{
    for (const Area* area : areas()) {
        const auto found = std::ranges::find(area->sections, std::string_view("system"), &Section::key);
        if (found == area->sections.end()) continue;
        const Bytes& image = service.store.running().values(*found);
        const auto* name = reinterpret_cast<const char*>(image.data() + system_record::name.at.offset);
        return {name, strnlen(name, system_record::name.at.width)};
    }
    return {};
}
}  // namespace

const Area kSystemLogArea{.sections = kSections, .lists = {}, .operations = kOperations};

LogRules log_rules(const Service& service)
{
    const Configuration& running = service.store.running();
    const Bytes &log = running.values(kLog), &logStates = running.values(kLogStates),
                &traceStates = running.values(kTraceStates);
    LogRules rules;
    for (std::size_t i = 0; i < kFacilities; i++) {
        const std::uint8_t logged = logStates[kFirstState + i], traced = traceStates[kFirstState + i];
        rules.logUpTo[i] = logged == kFacilityOn ? level.get(log.data()) : logged;
        rules.traceUpTo[i] = traced == kFacilityOn ? std::uint8_t{LOG_DEBUG} : traced;
    }
    if (remoteEnabled.get(log.data())) rules.remote.address = remoteAddress.get(log.data());
    rules.remote.sender = system_name(service);
    return rules;
}

std::uint32_t facility_bit(Facility facility)
{
    constexpr std::uint32_t kKnown = 0x80000000, kFirst = 8;
    return kKnown | kFirst << static_cast<unsigned>(facility);
}

bool facility_of_bit(std::uint32_t bit, Facility& facility)
{
    for (std::size_t i = 0; i < kFacilities; i++) {
        if (facility_bit(static_cast<Facility>(i)) != bit) continue;
        facility = static_cast<Facility>(i);
        return true;
    }
    return false;
}
