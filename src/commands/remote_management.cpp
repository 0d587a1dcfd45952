// Remote management: who may manage the device from the WAN side.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/management_access.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"
#include "service/fields/management.h"
#include "values/format.h"
#include "values/range.h"

namespace {
using namespace management_record;

enum Stage : std::uint32_t { kOver = 0, kAskAll = 137, kAskCount, kAskFirst, kAskSecond };

constexpr Range kClients{1, 2, kRemoteClientCount};

bool is_enabled(const ComParam& management) { return remoteMode.get(management) != kRemoteDisabled; }

// The mode that the clients stand for: all, while none is set.
RemoteMode mode_of_clients(const ComParam& management)
{
    if (remoteClient[0].get(management) == 0) return kRemoteAll;
    return remoteClient[1].get(management) == 0 ? kRemoteOne : kRemoteTwo;
}

// Out of the record to be written, while the questions are asked: whether it is enabled is not among them.
RemoteMode asked_mode() { return static_cast<RemoteMode>(remoteMode.get(wizardParam)); }

const char* client_shown(int client)
{
    const std::uint32_t address = remoteClient[client].get(wizardParam);
    return address ? CliFormatIPv4(address) : "Unspecified";
}
const char* all_shown() { return CliFormatYesNo(asked_mode() == kRemoteAll); }
const char* count_shown() { return CliFormatNumber(asked_mode() == kRemoteTwo ? 2 : 1); }
const char* first_shown() { return client_shown(0); }
const char* second_shown() { return client_shown(1); }

std::uint32_t validate_count(char* text, ParmList& words) { return parse_range(text, words, kClients); }

std::uint32_t refusal_of(std::uint32_t address)
{
    constexpr std::uint32_t kLoopback = 127, kMulticast = 224;
    const std::uint32_t first = address >> 24;
    if (first == 0) return kAddressIsZero;
    if (first == kLoopback) return kAddressIsLoopback;
    if (address == 0xFFFFFFFF) return kAddressIsAllOnes;
    return first >= kMulticast ? kAddressIsMulticast : kOk;
}

Next after_all(Answer answer)
{
    const bool all = answer.given ? answer.value == 1 : asked_mode() == kRemoteAll;
    if (!all) return {kAskCount};
    remoteMode.set(wizardParam, kRemoteAll);
    remoteClient[0].set(wizardParam, 0);
    remoteClient[1].set(wizardParam, 0);
    return {kOver};
}

Next after_count(Answer answer)
{
    const bool two = answer.given ? answer.value == 2 : asked_mode() == kRemoteTwo;
    remoteMode.set(wizardParam, two ? kRemoteTwo : kRemoteOne);
    if (!two) remoteClient[1].set(wizardParam, 0);
    return {kAskFirst};
}

Next take_client(Answer answer, int client, Stage asked, Stage next)
{
    if (!answer.given && remoteClient[client].get(wizardParam) == 0) return {asked, kRemoteClientAddress};
    if (!answer.given) return {next};
    const auto address = static_cast<std::uint32_t>(answer.value);
    if (const std::uint32_t refusal = refusal_of(address); refusal != kOk) return {asked, refusal};
    remoteClient[client].set(wizardParam, address);
    return {next};
}

Next after_first(Answer answer)
{
    return take_client(answer, 0, kAskFirst, asked_mode() == kRemoteTwo ? kAskSecond : kOver);
}

Next after_second(Answer answer)
{
    const Next next = take_client(answer, 1, kAskSecond, kOver);
    const bool same = remoteClient[0].get(wizardParam) == remoteClient[1].get(wizardParam);
    if (next.stage != kOver || !same) return next;
    remoteClient[1].set(wizardParam, 0);
    return {kAskSecond, kEntryExists};
}

// clang-format off
constexpr Question kQuestions[] = {
    {.stage = kAskAll,    .text = ClirmtmgntPrompt[0], .shown = all_shown,    .validate = parse_yesno,    .after = after_all},
    {.stage = kAskCount,  .text = ClirmtmgntPrompt[1], .shown = count_shown,  .validate = validate_count, .after = after_count},
    {.stage = kAskFirst,  .text = ClirmtmgntPrompt[2], .shown = first_shown,  .validate = parse_ip_addr,  .after = after_first},
    {.stage = kAskSecond, .text = ClirmtmgntPrompt[3], .shown = second_shown, .validate = parse_ip_addr,  .after = after_second},
};
// clang-format on

void print_settings()
{
    constexpr char kRow[] = "   %-24s %s\n";
    std::printf(kRow, "Remote management:", is_enabled(usrComParam) ? "enabled" : "disabled");
    if (mode_of_clients(usrComParam) == kRemoteAll) std::printf(kRow, "Allowed clients:", "all");
    for (const auto& client : remoteClient)
        if (const std::uint32_t address = client.get(usrComParam))
            std::printf(kRow, "Allowed client:", CliFormatIPv4(address));
}

bool begin()
{
    if (!report_access(read_record(code::kReadManagement))) return false;
    wizardParam = oldWizardParam = usrComParam;
    remoteMode.set(wizardParam, mode_of_clients(wizardParam));
    return true;
}

void finish()
{
    if (!is_enabled(oldWizardParam)) remoteMode.set(wizardParam, kRemoteDisabled);
    usrComParam = wizardParam;
    const bool changed = std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) != 0;
    if (changed && !report_access(write_record(code::kWriteManagement))) return;
    print_settings();
}
}  // namespace

void CliSetRmtmgnt(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin()) return;
    if (run_dialogue(kQuestions, call, term) == kOver) finish();
}

void CliShowRmtmgnt(ActionBlock&, int)
{
    if (report_access(read_record(code::kReadManagement))) print_settings();
}

void CliEnableRmtmgnt(ActionBlock&, int)
{
    if (!report_access(read_record(code::kReadManagement))) return;
    remoteMode.set(usrComParam, mode_of_clients(usrComParam));
    if (report_access(write_record(code::kWriteManagement))) print_settings();
}

void CliDisableRmtmgnt(ActionBlock&, int)
{
    if (!report_access(read_record(code::kReadManagement))) return;
    remoteMode.set(usrComParam, kRemoteDisabled);
    if (report_access(write_record(code::kWriteManagement))) print_settings();
}
