// The WDS peers. Their refusals are reported among those of the system, so they have statuses of their own.
#include "service/fields/wds.h"

#include "configd/areas/areas.h"
#include "configd/areas/named_mac.h"
#include "configd/table_sizes.h"
#include "service/codes.h"

namespace {
using namespace wds_record;

constexpr auto kColumns = named_mac_columns(name.at, mac.at);
constexpr Identity kIdentities[] = {
    {kStatusDuplicatePeer, kStatusUnknownName},
    {kStatusDuplicatePeerAddress, kStatusUnknownAddress},
};
constexpr List kLists[] = {{"wds_peers", kColumns, kIdentities, named_mac_entry::kSize, kMostWdsPeers}};

ServiceStatus add_peer(Call& call)
{
    const ServiceStatus status = add_named_mac(call);
    return status == kStatusTableFull ? kStatusPeerTableFull : status;
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadWdsPeers,  .run = read_list,        .list = &kLists[0], .count = count.at},
    {.code = code::kAddWdsPeer,    .run = add_peer,         .list = &kLists[0]},
    {.code = code::kDeleteWdsPeer, .run = delete_from_list, .list = &kLists[0]},
};
// clang-format on
}  // namespace

const Area kWdsArea{.sections = {}, .lists = kLists, .operations = kOperations};
