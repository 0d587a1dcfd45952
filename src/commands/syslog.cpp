// The remote syslog server: the log's entries go there too while it is enabled.
#include <cstdio>

#include "commands/command.h"
#include "console/messages.h"
#include "prompts/prompts.h"
#include "service/fields/system_log.h"
#include "values/format.h"

namespace {
using namespace system_log_record;
constexpr int kDisabledWord = 4, kEnabledWord = 5;  // in CliGenPrompt

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kLogGroup);
    return outcome.ok();
}

void print_settings()
{
    std::printf("        Remote syslog:            %s\n",
                CliGenPrompt[remoteEnabled.get(usrComParam) == 1 ? kEnabledWord : kDisabledWord]);
    const std::uint32_t server = remoteAddress.get(usrComParam);
    std::printf("        Syslog server IP address: %s\n", server ? CliFormatIPv4(server) : "not set");
}

void write_settings()
{
    if (report(write_record(code::kWriteSyslog))) print_settings();
}

std::uint32_t server_refusal(std::uint32_t address)
{
    if (address == 0) return kAddressIsZero;
    return address == 0xffffffff ? std::uint32_t{kAddressIsAllOnes} : std::uint32_t{kOk};
}
}  // namespace

void CliSetSyslogd(ActionBlock& call, int term)
{
    const auto server = static_cast<std::uint32_t>(call.parms.value[0]);
    if (const std::uint32_t refusal = server_refusal(server); refusal != kOk) {
        PrintMsg(term, refusal);
        return;
    }
    if (!report(read_record(code::kReadSystemLog))) return;
    remoteAddress.set(usrComParam, server);
    write_settings();
}

void CliEnableSyslogd(ActionBlock&, int)
{
    if (!report(read_record(code::kReadSystemLog))) return;
    if (remoteAddress.get(usrComParam) == 0) {
        std::printf("There is no syslog server yet: set one with \"set syslogd <IP address>\"\n");
        return;
    }
    remoteEnabled.set(usrComParam, 1);
    write_settings();
}

void CliDisableSyslogd(ActionBlock&, int)
{
    if (!report(read_record(code::kReadSystemLog))) return;
    remoteEnabled.set(usrComParam, 0);
    write_settings();
}

void CliShowSyslogd(ActionBlock&, int)
{
    if (report(read_record(code::kReadSystemLog))) print_settings();
}
