// UPnP.
#include "service/fields/upnp.h"

#include <cstdio>

#include "commands/command.h"
#include "commands/management_access.h"

namespace {
using namespace upnp_record;

void print_state()
{
    std::printf("   UPnP:                    %s\n", enabled.get(usrComParam) == 1 ? "enabled" : "disabled");
}

void switch_upnp(std::uint8_t on)
{
    if (!report_access(read_record(code::kReadUpnp))) return;
    enabled.set(usrComParam, on);
    if (report_access(write_record(code::kWriteUpnp))) print_state();
}
}  // namespace

void CliEnableUpnp(ActionBlock&, int) { switch_upnp(1); }
void CliDisableUpnp(ActionBlock&, int) { switch_upnp(0); }

void CliShowUpnp(ActionBlock&, int)
{
    if (report_access(read_record(code::kReadUpnp))) print_state();
}
