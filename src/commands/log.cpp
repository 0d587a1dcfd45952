// The system log level, and what each facility logs and traces.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/facility.h"
#include "console/messages.h"
#include "service/fields/system_log.h"

namespace {
struct Subject {
    const char* title;
    std::uint16_t code;
    facility_entry::At::Field<std::uint8_t> state;
};
constexpr Subject kLog{"Log", code::kWriteLogFacility, facility_entry::log};
constexpr Subject kTrace{"Trace", code::kWriteTraceFacility, facility_entry::trace};

const char* state_text(std::uint8_t state)
{
    static char text[sizeof "level 255"];
    if (state == kFacilityOff) return "disabled";
    if (state == kFacilityOn) return "enabled";
    std::snprintf(text, sizeof text, "level %u", unsigned{state});
    return text;
}

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kLogGroup);
    return outcome.ok();
}

bool read_state(const Subject& subject, std::uint32_t facility, std::uint8_t& state)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange facilities(code::kReadLogFacilities);
    if (!report(facilities.outcome())) return false;
    state = kFacilityOff;
    for (const unsigned char* entry : facilities.table(facility_entry::kSize))
        if (facility_entry::facility.get(entry) == facility) state = subject.state.get(entry);
    return true;
}

void switch_facility(const ActionBlock& call, int term, const Subject& subject, std::uint8_t state)
{
    const char* name = text_parm(call, 0);
    const std::uint32_t facility = facility_parm(term, name);
    std::uint8_t before;
    if (facility == 0 || !read_state(subject, facility, before)) return;
    if (before == state) {
        PrintMsg(term, state == kFacilityOff ? kFacilityAlreadyOff : kFacilityAlreadyOn);
        return;
    }
    std::memset(&usrComParam, 0, sizeof usrComParam);
    facility_request::facility.set(usrComParam, facility);
    facility_request::state.set(usrComParam, state);
    if (report(write_record(subject.code))) std::printf("%s of %s: %s\n", subject.title, name, state_text(state));
}

std::uint8_t level_parm(const ActionBlock& call, Word index)
{
    return static_cast<std::uint8_t>(call.parms.value[index]);
}

void print_level() { std::printf("System log level: %d\n", system_log_record::level.get(usrComParam)); }
}  // namespace

void CliSetLogLvl(ActionBlock& call, int)
{
    if (!report(read_record(code::kReadSystemLog))) return;
    system_log_record::level.set(usrComParam, level_parm(call, 0));
    if (report(write_record(code::kWriteLogLevel))) print_level();
}

void CliShowLogLvl(ActionBlock&, int)
{
    if (!report(read_record(code::kReadSystemLog))) return;
    print_level();
    const Exchange facilities(code::kReadLogFacilities);
    if (!report(facilities.outcome())) return;
    std::printf("\nFacility    Log         Trace\n---------------------------------\n");
    // One text for both columns: the first is printed before the second is made.
    for (const unsigned char* entry : facilities.table(facility_entry::kSize)) {
        std::printf("%-11s %-11s ", facility_name(facility_entry::facility.get(entry)),
                    state_text(facility_entry::log.get(entry)));
        std::printf("%s\n", state_text(facility_entry::trace.get(entry)));
    }
}

// clang-format off
void CliEnableLogFac     (ActionBlock& call, int term) { switch_facility(call, term, kLog,   kFacilityOn); }
void CliEnableLogFacLel  (ActionBlock& call, int term) { switch_facility(call, term, kLog,   level_parm(call, 1)); }
void CliDisableLogFac    (ActionBlock& call, int term) { switch_facility(call, term, kLog,   kFacilityOff); }
void CliEnableTraceFac   (ActionBlock& call, int term) { switch_facility(call, term, kTrace, kFacilityOn); }
void CliEnableTraceFacLvl(ActionBlock& call, int term) { switch_facility(call, term, kTrace, level_parm(call, 1)); }
void CliDisableTraceFac  (ActionBlock& call, int term) { switch_facility(call, term, kTrace, kFacilityOff); }
// clang-format on
