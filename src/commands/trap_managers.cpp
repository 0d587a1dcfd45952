// The managers that SNMP traps are sent to: a list of named addresses, each of which can be switched.
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/management_access.h"
#include "service/fields/snmp.h"
#include "values/format.h"

namespace {
namespace entry = trap_manager_entry;
namespace request = trap_manager_request;

// One request about the named manager. `address` and `on` go to the codes that take them.
bool send(const ActionBlock& call, std::uint16_t operation, std::uint8_t on = 0, std::uint32_t address = 0)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    request::name.set(usrComParam, text_parm(call, 0));
    request::address.set(usrComParam, address);
    request::enabled.set(usrComParam, on);
    return report_access(write_record(operation));
}

void switch_manager(const ActionBlock& call, std::uint8_t on)
{
    if (send(call, code::kEnableTrapManager, on))
        std::printf("Trap manager %s is %s.\n", text_parm(call, 0), on ? "enabled" : "disabled");
}

// The managers of that name, or all of them; returns how many.
int print_managers(const Exchange& snmp, const char* onlyName)
{
    constexpr char kRow[] = "%-30s %-15s %s\n";
    int shown = 0;
    for (unsigned char* manager : snmp.table(entry::kSize)) {
        const char* name = entry::name.get(manager);
        if (onlyName && std::strcmp(name, onlyName) != 0) continue;
        if (shown++ == 0) {
            std::printf(kRow, "Trap manager", "IP address", "State");
            std::printf("--------------------------------------------------------\n");
        }
        std::printf(kRow, name, CliFormatIPv4(entry::address.get(manager)),
                    entry::enabled.get(manager) == 1 ? "enabled" : "disabled");
    }
    return shown;
}

void show_managers(const char* onlyName)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange snmp(code::kReadSnmp);
    if (!report_access(snmp.outcome()) || print_managers(snmp, onlyName) > 0) return;
    if (onlyName)
        CliPrintServiceError(kStatusUnknownName, kManagementGroup);
    else
        std::printf("There are no trap managers.\n");
}
}  // namespace

void CliAddTrapMgr(ActionBlock& call, int)
{
    const auto address = static_cast<std::uint32_t>(call.parms.value[1]);
    if (send(call, code::kAddTrapManager, 1, address))
        std::printf("Trap manager %s is added: %s\n", text_parm(call, 0), CliFormatIPv4(address));
}

void CliDelTrapMgr(ActionBlock& call, int)
{
    if (send(call, code::kDeleteTrapManager)) std::printf("Trap manager %s is deleted.\n", text_parm(call, 0));
}

void CliEnableTrapMgr(ActionBlock& call, int) { switch_manager(call, 1); }
void CliDisableTrapMgr(ActionBlock& call, int) { switch_manager(call, 0); }

void CliShowTrapMgr(ActionBlock&, int) { show_managers(nullptr); }
void CliShowTrapMgrParm(ActionBlock& call, int) { show_managers(text_parm(call, 0)); }
