// The device's interfaces: the list that is shown, and an interface's default profile.
#include "service/fields/interfaces.h"

#include <cstdio>
#include <cstring>
#include <iterator>

#include "commands/command.h"
#include "service/fields/profile.h"
#include "values/format.h"

namespace {
namespace entry = interface_entry;

constexpr char kRow[] = " %-5s %-6s %-19s %-7s %-5s %-18s %-s\n";
constexpr char kMtu[] = "1500", kNoBridge[] = "-";
constexpr const char* kTypes[] = {"ethernet", "ethernet(wireless)", "bridge", "pppoe", "pptp", "vlan", "bonding"};
}  // namespace

void CliShowIf(ActionBlock&, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange list(code::kReadPort);
    if (!list.ok()) {
        CliPrintServiceError(list.outcome().reason(), kSystemGroup);
        return;
    }
    std::printf(kRow, "name", "state", "type", "port", "MTU", "H/W address", "bridge");
    const char* type = "";  // a type without a name shows the one above it
    for (unsigned char* row : list.table(entry::kSize)) {
        const unsigned number = entry::type.get(row);
        if (number >= entry::kEthernet && number <= std::size(kTypes)) type = kTypes[number - 1];
        std::printf(kRow, entry::name.get(row), entry::state.get(row) == entry::kUp ? "up" : "down", type,
                    entry::port.get(row), kMtu, CliFormatMAC(entry::mac.get(row)), kNoBridge);
    }
}

// Nothing is printed on success; the rest of the record goes out as it stands.
void CliSetIfDftProf(ActionBlock& call, int)
{
    default_profile_record::interface.set(usrComParam, text_parm(call, 0));
    default_profile_record::profile.set(usrComParam, text_parm(call, 1));
    if (const Outcome written = write_record(code::kWriteDefaultProfile); !written.ok())
        CliPrintServiceError(written.reason(), kInterfaceGroup);
}
