// save config, clear config, reset system: the stored configuration as a whole. The two that restart the device ask
// first; what each of them prints and reports, and in which order, differs on purpose.
#include <cstdio>

#include "commands/command.h"
#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"

namespace {
enum Stage : std::uint32_t { kOver = 0, kConfirm = 133 };

constexpr int kSystemWillReboot = 41;  // in cliPrompt
constexpr char kClearQuestion[] =
    "All configuration will be cleared and system will reset.\nDo you want to continue (y/n)?";

enum class Confirmation { pending, no, yes };

// Takes the answer to a question that has no default: asked again until it is yes or no.
Confirmation confirmed(ActionBlock& call, int term)
{
    char* answer = answer_text(call);
    if (*answer != 0) {
        const std::uint32_t refusal = parse_yesno(answer, call.parms);
        if (refusal == kOk) {
            call.stage = kOver;
            return call.parms.value[call.parms.count - 1] ? Confirmation::yes : Confirmation::no;
        }
        PrintMsg(term, refusal);
    }
    CliPromptLast();
    return Confirmation::pending;
}

// The bare operation, nothing else in the record.
Outcome request(std::uint16_t operation) { return read_record(operation); }

void clear_and_restart()
{
    // The status words are not looked at: whatever the service could not clear, a restart follows.
    if (const std::uint32_t failed = request(code::kClearConfiguration).exchange) {
        CliPrintServiceError(failed, kSystemGroup);
        return;
    }
    std::printf("\nRebooting...\n");
    if (const std::uint32_t failed = request(code::kRestart).exchange) CliPrintServiceError(failed, kSystemGroup);
}

void restart()
{
    std::printf("reboot...\r\n");
    if (const Outcome outcome = request(code::kRestart); !outcome.ok())
        CliPrintServiceError(outcome.status, kSystemGroup);
}
}  // namespace

void CliSaveConfig(ActionBlock&, int)
{
    if (const Outcome saved = request(code::kSaveConfiguration); !saved.ok())
        CliPrintServiceError(saved.reason(), kSystemGroup);
    else
        std::printf("Save configure successfully!\r\n");
}

void CliClearConfig(ActionBlock& call, int term)
{
    if (call.stage == kOver) {
        CliPromptX("%s", kClearQuestion);
        call.stage = kConfirm;
    } else if (confirmed(call, term) == Confirmation::yes) {
        clear_and_restart();
    }
}

void CliRestSystem(ActionBlock& call, int term)
{
    if (call.stage == kOver) {
        CliPromptX("%s", cliPrompt[kSystemWillReboot]);
        call.stage = kConfirm;
    } else if (confirmed(call, term) == Confirmation::yes) {
        restart();
    }
}
