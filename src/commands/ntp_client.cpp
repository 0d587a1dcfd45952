// The NTP client, which keeps the clock right: shown, switched, and set in a dialogue that also chooses the time zone.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/time_zone.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/time.h"
#include "service/time_zones.h"
#include "values/format.h"
#include "values/range.h"

namespace {
using namespace time_record;

enum Stage : std::uint32_t {
    kOver = 0,
    kAskZone = 237,
    kAskByAddress,
    kAskAddress,
    kAskName,
    kAskInterval,
    kAskEnable
};

constexpr char kRow[] = "%-30s%-25s\n";
constexpr char kUnspecified[] = "Unspecified";
constexpr Range kIntervalHours{1, 720, kRequestIntervalRange};
constexpr std::size_t kShownName = 9;  // characters of a display name that an answer is looked for in

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kTimeGroup);
    return outcome.ok();
}

const char* server_address(const ComParam& time)
{
    const std::uint32_t address = serverAddress.get(time);
    return address ? CliFormatIPv4(address) : kUnspecified;
}
const char* server_name(ComParam& time) { return serverName.length(time) ? serverName.get(time) : kUnspecified; }

const char* zone_shown() { return zone_name(wizardParam); }
const char* by_address_shown() { return serverByAddress.get(wizardParam) ? "Yes" : "No"; }
const char* address_shown() { return server_address(wizardParam); }
const char* name_shown() { return server_name(wizardParam); }
const char* interval_shown() { return CliFormatNumber(interval.get(wizardParam)); }
const char* enable_shown() { return "yes"; }

std::uint32_t validate_name(char* text, ParmList&) { return parse_domainname(text, std::strlen(text)); }
std::uint32_t validate_interval(char* text, ParmList& words) { return parse_range(text, words, kIntervalHours); }

// Every display name that contains the answer as typed makes its index the zone, the last one winning: an answer must
// be written like the table, and one that passes the validator but stands in no name leaves the zone alone.
Next after_zone(Answer answer)
{
    for (std::size_t i = 0; answer.given && i < tzFileName.size(); ++i) {
        char name[kShownName + 1];
        std::snprintf(name, sizeof name, "%s", tzFileName[i].display);
        if (std::strstr(name, answer.text)) zone.set(wizardParam, static_cast<std::int16_t>(i));
    }
    return {kAskByAddress};
}

Next after_by_address(Answer answer)
{
    if (answer.given) serverByAddress.set(wizardParam, static_cast<std::uint8_t>(answer.value));
    return {serverByAddress.get(wizardParam) ? kAskAddress : kAskName};
}

Next after_address(Answer answer)
{
    if (answer.given) serverAddress.set(wizardParam, static_cast<std::uint32_t>(answer.value));
    if (answer.given || serverAddress.get(wizardParam)) return {kAskInterval};
    std::printf(" Please sepcifiy IP address.\n");
    return {kAskAddress};
}

Next after_name(Answer answer)
{
    if (answer.given) serverName.set(wizardParam, answer.text);
    if (serverName.length(wizardParam)) return {kAskInterval};
    std::printf(" Please sepcifiy domain name.\n");
    return {kAskName};
}

Next after_interval(Answer answer)
{
    if (answer.given) interval.set(wizardParam, static_cast<std::uint32_t>(answer.value));
    return {kAskEnable};
}

// No answer means yes; an answer means yes when a lower-case y is in it.
Next after_enable(Answer answer)
{
    ntpEnabled.set(wizardParam, !answer.given || std::strchr(answer.text, 'y') ? 1 : 0);
    return {kOver};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskZone,      .text = CliNtpClientPrompt[0], .shown = zone_shown,       .validate = parse_timezone,    .after = after_zone},
    {.stage = kAskByAddress, .text = CliNtpClientPrompt[1], .shown = by_address_shown, .validate = parse_yesno,       .after = after_by_address},
    {.stage = kAskAddress,   .text = CliNtpClientPrompt[2], .shown = address_shown,    .validate = parse_ip_addr,     .after = after_address},
    {.stage = kAskName,      .text = CliNtpClientPrompt[3], .shown = name_shown,       .validate = validate_name,     .after = after_name},
    {.stage = kAskInterval,  .text = CliNtpClientPrompt[4], .shown = interval_shown,   .validate = validate_interval, .after = after_interval},
    {.stage = kAskEnable,    .text = CliNtpClientPrompt[5], .shown = enable_shown,     .validate = parse_yesno,       .after = after_enable},
};
// clang-format on

void switch_client(std::uint8_t on, const char* confirmation)
{
    if (!report(read_record(code::kReadTime))) return;
    ntpEnabled.set(usrComParam, on);
    if (report(write_record(code::kWriteNtpClient))) std::printf("%s", confirmation);
}

bool begin()
{
    if (!report(read_record(code::kReadTime))) return false;
    wizardParam = oldWizardParam = usrComParam;
    return true;
}

void finish(ActionBlock& call, int term)
{
    if (std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) != 0) {
        usrComParam = wizardParam;
        if (!report(write_record(code::kWriteNtpClient))) return;
    }
    CliShowNtpClient(call, term);
}
}  // namespace

void CliShowNtpClient(ActionBlock&, int)
{
    if (!report(read_record(code::kReadTime))) return;
    std::printf(kRow, "NTP state:", ntpEnabled.get(usrComParam) ? "Enabled" : "Disabled");
    std::printf(kRow, "Timezone:", zone_name(usrComParam));
    std::printf(kRow, "Time server type:", serverByAddress.get(usrComParam) ? "IP" : "Domain Name");
    std::printf(kRow, "Time server domain name:", server_name(usrComParam));
    std::printf(kRow, "Time server IP address:", server_address(usrComParam));
    char hours[32];
    std::snprintf(hours, sizeof hours, "%d (hour)", static_cast<int>(interval.get(usrComParam)));
    std::printf(kRow, "Request interval:", hours);
}

void CliEnableNtpClient(ActionBlock&, int)
{
    switch_client(1, "NTP has been enabled to synchronzied time automatically.\n");
}
void CliDisableNtpClient(ActionBlock&, int) { switch_client(0, "NTP has been disabled, please set time menually.\n"); }

void CliSetNtpClient(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin()) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish(call, term);
}
