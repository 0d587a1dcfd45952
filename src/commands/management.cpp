// The ports and time-outs of HTTP and telnet.
#include "service/fields/management.h"

#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/management_access.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"

namespace {
using namespace management_record;

enum Stage : std::uint32_t { kOver = 0, kAskContinue = 133 };

bool is_taken(std::uint16_t port, std::uint16_t other, int term)
{
    if (port == other) PrintMsg(term, kPortInUse);
    return port == other;
}

void print_http()
{
    std::printf("   HTTP port:   %-5d       Timeout: %d mins\n", httpPort.get(usrComParam),
                httpTimeout.get(usrComParam));
}

void print_telnet()
{
    std::printf("   Telnet port: %-5d       Timeout: %d mins\n", telnetPort.get(usrComParam),
                static_cast<int>(sessionTimeout.get(usrComParam)));
}

const char* default_shown() { return CliGenPrompt[2]; }

Next after_warning(Answer answer)
{
    if (!answer.given || answer.value == 0) wizardParam = oldWizardParam;
    return {kOver};
}

// clang-format off
constexpr Question kHttpQuestions[] = {
    {.stage = kAskContinue, .text = CliHttpPrompt[0], .shown = default_shown, .validate = parse_yesno, .after = after_warning},
};
// clang-format on

bool begin_http_port(const ActionBlock& call, int term)
{
    if (!report_access(read_record(code::kReadManagement))) return false;
    const auto port = static_cast<std::uint16_t>(call.parms.value[0]);
    if (is_taken(port, telnetPort.get(usrComParam), term)) return false;
    wizardParam = oldWizardParam = usrComParam;
    httpPort.set(wizardParam, port);
    return true;
}

void finish_http_port(int term)
{
    usrComParam = wizardParam;
    if (std::memcmp(&wizardParam, &oldWizardParam, sizeof wizardParam) == 0) {
        std::printf("The HTTP port has not been changed.\n");
    } else {
        if (!report_access(write_record(code::kWriteManagement))) return;
        PrintMsg(term, kHttpPortChanged);
    }
    print_http();
}
}  // namespace

void CliSetHttpPort(ActionBlock& call, int term)
{
    if (call.stage == kOver && !begin_http_port(call, term)) return;
    if (run_dialogue(kHttpQuestions, call, term) == kOver) finish_http_port(term);
}

void CliSetHttpTimeout(ActionBlock& call, int)
{
    if (!report_access(read_record(code::kReadManagement))) return;
    httpTimeout.set(usrComParam, static_cast<std::uint16_t>(call.parms.value[0]));
    if (report_access(write_record(code::kWriteManagement))) print_http();
}

void CliSetTelnetPort(ActionBlock& call, int term)
{
    if (!report_access(read_record(code::kReadManagement))) return;
    const auto port = static_cast<std::uint16_t>(call.parms.value[0]);
    if (is_taken(port, httpPort.get(usrComParam), term)) return;
    telnetPort.set(usrComParam, port);
    if (!report_access(write_record(code::kWriteManagement))) return;
    PrintMsg(term, kTelnetPortChanged);
    print_telnet();
}

// The running session keeps the time-out that it was started with.
void CliSetTelnetTimeout(ActionBlock& call, int)
{
    if (!report_access(read_record(code::kReadManagement))) return;
    sessionTimeout.set(usrComParam, static_cast<std::uint32_t>(call.parms.value[0]));
    if (!report_access(write_record(code::kWriteManagement))) return;
    print_telnet();
    std::printf("The timeout will take effect at the next login.\n");
}

void CliShowHttp(ActionBlock&, int)
{
    if (report_access(read_record(code::kReadManagement))) print_http();
}

void CliShowTelnet(ActionBlock&, int)
{
    if (report_access(read_record(code::kReadManagement))) print_telnet();
}
