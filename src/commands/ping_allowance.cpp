// Which interfaces the internet may ping.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "service/fields/interfaces.h"
#include "service/fields/ping.h"

namespace {
using namespace ping_record;

bool report(const Outcome& outcome)
{
    if (!outcome.ok()) CliPrintServiceError(outcome.reason(), kInterfaceGroup);
    return outcome.ok();
}

void print_header() { std::printf(" %-15s %s\n", "name", "internet ping"); }
void print_row(const char* name, bool mayBePinged)
{
    std::printf(" %-15s %s\n", name, mayBePinged ? "enabled" : "disabled");
}

void show_interface(const char* name, Change wanted)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    interface.set(usrComParam, name);
    change.set(usrComParam, wanted);
    if (!report(write_record(code::kReadPingAllowance))) return;
    print_header();
    print_row(interface.get(usrComParam), allowed.get(usrComParam) == 1);
}
}  // namespace

void CliShowPing(ActionBlock&, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange interfaces(code::kReadInterfaces);
    if (!report(interfaces.outcome())) return;
    print_header();
    for (unsigned char* entry : interfaces.table(interface_entry::kSize))
        print_row(interface_entry::name.get(entry), interface_entry::flags.get(entry) & interface_entry::kPingAllowed);
}

void CliShowPingParm(ActionBlock& call, int) { show_interface(text_parm(call, 0), kRead); }
void CliEnablePing(ActionBlock& call, int) { show_interface(text_parm(call, 0), kAllow); }
void CliDisablePing(ActionBlock& call, int) { show_interface(text_parm(call, 0), kForbid); }
