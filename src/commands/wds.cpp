// The WDS peers: named bridge partners. The heads of the two tables differ on purpose.
#include "service/fields/wds.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "commands/command.h"
#include "commands/named_mac.h"
#include "console/messages.h"

namespace {
constexpr char kAddedHeader[] = "Peer Name                 MAC Address\r\n"
                                "-------------------------------------------------\r\n";
constexpr char kAddedRow[] = "%-15.15s           %s \r\n";
constexpr char kListHeader[] = "Peer Name                  Mac Address\r\n"
                               "---------------------------------------\r\n";
constexpr char kListRow[] = "%-15.15s            %s \r\n";
}  // namespace

void CliAddWDSPeerSvr(ActionBlock& call, int)
{
    const char* name = text_parm(call, 0);
    std::memset(&usrComParam, 0, sizeof usrComParam);
    wds_record::mac.set(usrComParam, last_mac_parm(call));
    wds_record::name.set(usrComParam, name);
    if (const Outcome added = write_record(code::kAddWdsPeer); !added.ok()) {
        CliPrintServiceError(added.reason(), kSystemGroup);
        return;
    }
    std::printf("%s", kAddedHeader);
    print_named_mac(kAddedRow, name, last_mac_parm(call));
}

void CliDeleteWDSPeerSvr(ActionBlock& call, int term)
{
    const char* name = text_parm(call, 0);
    std::memset(&usrComParam, 0, sizeof usrComParam);
    wds_record::name.set(usrComParam, name);
    const Outcome deleted = write_record(code::kDeleteWdsPeer);
    if (deleted.exchange)
        PrintMsg(term, kWdsPeerDeleteFailed, name);
    else if (deleted.status)
        CliPrintServiceError(deleted.status, kOperationModeGroup);
    else
        std::printf("WDS Peer %s is deleted!\n", name);
}

void CliShowWDSPeer(ActionBlock&, int)
{
    std::memset(&usrComParam, 0, sizeof usrComParam);
    const Exchange peers(code::kReadWdsPeers);
    if (!peers.ok()) {
        CliPrintServiceError(peers.outcome().reason(), kSystemGroup);
        return;
    }
    const AttachedTable table = peers.table(named_mac_entry::kSize);
    const std::size_t count = std::min<std::size_t>(wds_record::count.get(usrComParam), table.size());
    std::printf("%s", kListHeader);
    for (std::size_t i = 0; i < count; ++i)
        print_named_mac(kListRow, named_mac_entry::name.get(table[i]), named_mac_entry::mac.get(table[i]));
}
