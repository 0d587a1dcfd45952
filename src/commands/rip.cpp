#include "commands/rip.h"

#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/interface_list.h"
#include "service/fields/rip.h"

namespace {
struct ModeName {
    std::uint32_t mode;
    const char* text;
};
constexpr ModeName kModeNames[] = {
    {rip_record::kActive1, "Active ver.1"}, {rip_record::kPassive1, "Passive ver.1"},
    {rip_record::kActive2, "Active ver.2"}, {rip_record::kPassive2, "Passive ver.2"},
    {rip_record::kDisabled, "Disabled"},
};

Outcome write_mode(const char* interface, std::uint32_t mode)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    rip_record::interface.set(usrComParam, interface);
    rip_record::mode.set(usrComParam, mode);
    return write_record(code::kWriteRip);
}

bool write_every_interface(std::uint32_t mode)
{
    InterfaceNames names;
    if (CliQueryIfNumber() <= 0 || CliGetIfList(names) <= 0) {
        std::printf(" error while getting visible interface number\n");
        return false;
    }
    for (int i = 0; i < names.count; ++i) {
        if (const Outcome written = write_mode(names.name[i], mode); !written.ok()) {
            CliPrintServiceError(written.reason(), kInterfaceGroup);
            return false;
        }
    }
    return true;
}

void set_mode(ActionBlock& call, int term, std::uint32_t mode)
{
    if (call.parms.count == 0) {
        if (!write_every_interface(mode)) return;
    } else if (const Outcome written = write_mode(text_parm(call, 0), mode); !written.ok()) {
        CliPrintServiceError(written.reason(), kInterfaceGroup);
        return;
    }
    call.parms.count = 0;
    CliShowRIP(call, term);
}
}  // namespace

void CliShowRIP(ActionBlock& call, int)
{
    const char* only = call.parms.count ? text_parm(call, 0) : nullptr;
    std::memset(&usrComParam, 0, sizeof usrComParam);
    if (only) rip_record::interface.set(usrComParam, only);
    const Exchange interfaces(code::kReadRip);
    if (!interfaces.ok()) {
        std::printf("error.\n");
        return;
    }
    std::printf("name      RIP state\n----------------------\n");
    const char* text = "";  // a mode without a name shows the one above it
    for (unsigned char* entry : interfaces.table(rip_entry::kSize)) {
        for (const ModeName& name : kModeNames)
            if (name.mode == rip_entry::mode.get(entry)) text = name.text;
        const char* interface = rip_entry::interface.get(entry);
        if (!only || std::strcmp(interface, only) == 0) std::printf("%-9s %s\n", interface, text);
    }
}

void CliEnableRip1Active(ActionBlock& call, int term) { set_mode(call, term, rip_record::kActive1); }
void CliEnableRip1Passive(ActionBlock& call, int term) { set_mode(call, term, rip_record::kPassive1); }
void CliEnableRip2Active(ActionBlock& call, int term) { set_mode(call, term, rip_record::kActive2); }
void CliEnableRip2Passive(ActionBlock& call, int term) { set_mode(call, term, rip_record::kPassive2); }
void CliDisableRip(ActionBlock& call, int term) { set_mode(call, term, rip_record::kDisabled); }
