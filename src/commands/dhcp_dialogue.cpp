// set dhcp server: the pool, the gateway, the lease time and the name servers, question by question.
#include <cstring>

#include "commands/command.h"
#include "commands/lan_address.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/dhcp.h"
#include "values/format.h"
#include "values/range.h"

namespace {
using namespace dhcp_record;

enum Stage : std::uint32_t {
    kOver = 0,
    kAskGateway = 131,
    kAskLower = 134,
    kAskUpper,
    kAskLease,
    kAskAssignDns,
    kAskPrimaryDns,
    kAskSecondaryDns,
};

constexpr Range kLeaseMinutes{1, 525600, kLeaseTimeRange};

const char* address_or_unspecified(std::uint32_t value) { return value ? CliFormatIPv4(value) : "Unspecified"; }
const char* lower_shown() { return CliFormatIPv4(lowerAddress.get(wizardParam)); }
const char* upper_shown() { return CliFormatIPv4(upperAddress.get(wizardParam)); }
const char* gateway_shown() { return CliFormatIPv4(gateway.get(wizardParam)); }
const char* lease_shown() { return CliFormatNumber(leaseTime.get(wizardParam)); }
const char* assign_shown() { return "yes"; }
const char* primary_shown() { return address_or_unspecified(primaryDns.get(wizardParam)); }
const char* secondary_shown() { return address_or_unspecified(secondaryDns.get(wizardParam)); }

bool had_dns() { return primaryDns.get(oldWizardParam) != 0; }

std::uint32_t validate_lease(char* text, ParmList& words) { return parse_range(text, words, kLeaseMinutes); }

// Stores the address of an answer unless the LAN refuses it; then the same question comes again.
Next take_address(Answer answer, const Field<std::uint32_t>& field, Stage asked, Stage next)
{
    if (!answer.given) return {next};
    const auto address = static_cast<std::uint32_t>(answer.value);
    if (const std::uint32_t refusal = CliVerifyIP(address); refusal != kOk) return {asked, refusal};
    field.set(wizardParam, address);
    return {next};
}

Next after_lower(Answer answer) { return take_address(answer, lowerAddress, kAskLower, kAskUpper); }
Next after_gateway(Answer answer) { return take_address(answer, gateway, kAskGateway, kAskLease); }
Next after_secondary(Answer answer) { return take_address(answer, secondaryDns, kAskSecondaryDns, kOver); }

Next after_upper(Answer answer)
{
    if (!answer.given) return {kAskGateway};
    const auto upper = static_cast<std::uint32_t>(answer.value);
    const std::uint32_t lower = lowerAddress.get(wizardParam);
    // A refused upper address is asked for again with the lower one as its default, on purpose.
    if (const std::uint32_t refusal = CliVerifyIP(upper); refusal != kOk) return {kAskUpper, refusal, lower_shown()};
    if (upper < lower) return {kAskLower, kUpperPoolBelowLower};
    if (const std::uint32_t refusal = CliVerifyDhcpIpRange(lower, upper); refusal != kOk) {
        if (refusal == kDhcpPoolTooWide) PatchMsg(2, refusal, static_cast<int>(g_unNumOfHosts));
        return {kAskUpper, refusal};
    }
    upperAddress.set(wizardParam, upper);
    return {kAskGateway};
}

Next after_lease(Answer answer)
{
    if (!answer.given) return {kAskAssignDns, kOk, had_dns() ? "no" : "yes"};
    leaseTime.set(wizardParam, static_cast<std::uint32_t>(answer.value));
    return {kAskAssignDns};
}

// A lower-case y says yes; an upper-case YES passes the validator and counts as no.
Next after_assign(Answer answer)
{
    const bool assign = answer.given ? std::strchr(answer.text, 'y') != nullptr : !had_dns();
    return {assign ? kAskPrimaryDns : kOver};
}

Next after_primary(Answer answer)
{
    if (!answer.given && primaryDns.get(wizardParam) == 0) return {kAskPrimaryDns};
    return take_address(answer, primaryDns, kAskPrimaryDns, kAskSecondaryDns);
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskLower,        .text = ClidhcpPrompt[0], .shown = lower_shown,     .validate = parse_ip_addr,  .after = after_lower},
    {.stage = kAskUpper,        .text = ClidhcpPrompt[1], .shown = upper_shown,     .validate = parse_ip_addr,  .after = after_upper},
    {.stage = kAskGateway,      .text = ClidhcpPrompt[6], .shown = gateway_shown,   .validate = parse_ip_addr,  .after = after_gateway},
    {.stage = kAskLease,        .text = ClidhcpPrompt[2], .shown = lease_shown,     .validate = validate_lease, .after = after_lease},
    {.stage = kAskAssignDns,    .text = ClidhcpPrompt[3], .shown = assign_shown,    .validate = parse_yesno,    .after = after_assign},
    {.stage = kAskPrimaryDns,   .text = ClidhcpPrompt[4], .shown = primary_shown,   .validate = parse_ip_addr,  .after = after_primary},
    {.stage = kAskSecondaryDns, .text = ClidhcpPrompt[5], .shown = secondary_shown, .validate = parse_ip_addr,  .after = after_secondary},
};
// clang-format on

bool begin()
{
    if (const Outcome read = read_record(code::kReadDhcpServer); !read.ok()) {
        CliPrintServiceError(read.reason(), kDhcpGroup);
        return false;
    }
    wizardParam = oldWizardParam = usrComParam;
    return true;
}

void finish(ActionBlock& call, int term)
{
    if (std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) != 0) {
        usrComParam = wizardParam;
        if (const Outcome written = write_record(code::kWriteDhcpServer); !written.ok()) {
            CliPrintServiceError(written.reason(), kSystemGroup);
            return;
        }
    }
    CliShowDhcpSrv(call, term);
}
}  // namespace

void CliSetDhcpSrv(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin()) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish(call, term);
}
