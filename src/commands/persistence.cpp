// save config, clear config, reset system: the stored configuration as a whole. The two that restart the device ask
// first; what each of them prints and reports, and in which order, differs on purpose.
#include <cstdio>

#include "commands/command.h"
#include "commands/confirmation.h"
#include "prompts/prompts.h"

namespace {
constexpr int kSystemWillReboot = 41;  // in cliPrompt
constexpr char kClearQuestion[] =
    "All configuration will be cleared and system will reset.\nDo you want to continue (y/n)?";

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
    if (confirm(call, term, kClearQuestion) == Confirmation::yes) clear_and_restart();
}

void CliRestSystem(ActionBlock& call, int term)
{
    if (confirm(call, term, cliPrompt[kSystemWillReboot]) == Confirmation::yes) restart();
}
