// SNMP: its communities and its state. The community that may change the device is told once and never shown.
#include "service/fields/snmp.h"

#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/management_access.h"

namespace {
using namespace snmp_record;

// The working record goes out with later requests.
struct ForgetWriteCommunity {
    ~ForgetWriteCommunity() { explicit_bzero(usrComParam.bytes + writeCommunity.at.offset, writeCommunity.at.width); }
};

const char* state() { return enabled.get(usrComParam) == 1 ? "enabled" : "disabled"; }
const char* write_community() { return writeCommunitySet.get(usrComParam) ? "********" : "Unspecified"; }

void print_read_community() { std::printf("   Community string (read-only):  %s\n", readCommunity.get(usrComParam)); }
void print_write_community() { std::printf("   Community string (read-write): %s\n", write_community()); }
void print_state() { std::printf("   SNMP:                          %s\n", state()); }

void switch_snmp(std::uint8_t on)
{
    if (!report_access(read_record(code::kReadSnmp))) return;
    enabled.set(usrComParam, on);
    if (report_access(write_record(code::kWriteSnmp))) print_state();
}
}  // namespace

void CliEnableSnmp(ActionBlock&, int) { switch_snmp(1); }
void CliDisableSnmp(ActionBlock&, int) { switch_snmp(0); }

void CliSetComStrRead(ActionBlock& call, int)
{
    if (!report_access(read_record(code::kReadSnmp))) return;
    readCommunity.set(usrComParam, text_parm(call, 0));
    if (report_access(write_record(code::kWriteSnmp))) print_read_community();
}

void CliSetComStrWrite(ActionBlock& call, int)
{
    const ForgetWriteCommunity forget;
    if (!report_access(read_record(code::kReadSnmp))) return;
    writeCommunity.set(usrComParam, text_parm(call, 0));
    if (report_access(write_record(code::kWriteSnmp))) print_write_community();
}

void CliShowComStrRead(ActionBlock&, int)
{
    if (report_access(read_record(code::kReadSnmp))) print_read_community();
}

void CliShowSnmp(ActionBlock&, int)
{
    if (!report_access(read_record(code::kReadSnmp))) return;
    print_state();
    print_read_community();
    print_write_community();
    std::printf("   Trap managers:                 %d\n", trapManagers.get(usrComParam));
}
