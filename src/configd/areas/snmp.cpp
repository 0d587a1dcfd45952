// SNMP: the communities, and the managers that traps are sent to.
#include "service/fields/snmp.h"

#include "configd/areas/areas.h"
#include "configd/areas/ipv4.h"
#include "service/codes.h"

namespace {
using namespace snmp_record;
namespace entry = trap_manager_entry;
namespace request = trap_manager_request;

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::flag  ("enabled",         enabled,        false),
    row::secret("read_community",  readCommunity,  {.factory = "public", .min = 1}),
    row::meant (row::secret("write_community", writeCommunity, {.emptyKeeps = true})),
});
constexpr Section kSections[] = {section("snmp", "", kRows)};

constexpr Column kColumns[] = {
    {row::text   ("name",    entry::name, {.min = 1}),             request::name.at,    0},
    {row::address("address", entry::address, 0, is_host),  request::address.at, 1},
    {row::flag   ("enabled", entry::enabled, true),                request::enabled.at},
};
constexpr const Setting& kName = kColumns[0].setting;
constexpr const Setting& kEnabled = kColumns[2].setting;
constexpr Identity kIdentities[] = {
    {kStatusDuplicateName,    kStatusUnknownName},
    {kStatusDuplicateAddress, kStatusUnknownAddress},
};
constexpr List kLists[] = {{"trap_managers", kColumns, kIdentities, entry::kSize, entry::kCapacity}};
// clang-format on

// The write community is what lets somebody change the device: nobody needs to see it again.
ServiceStatus read_snmp(Call& call)
{
    if (const ServiceStatus refused = read_section(call)) return refused;
    ComParam& answer = call.answer.record;
    writeCommunitySet.set(answer, writeCommunity.length(answer) > 0);
    writeCommunity.clear(answer);
    return read_list(call);
}

ServiceStatus write_snmp(Call& call)
{
    if (const ServiceStatus refused = write_rows(call, kSections[0], kRows)) return refused;
    return read_snmp(call);
}

ServiceStatus switch_trap_manager(Call& call)
{
    const unsigned char* state = call.request.bytes + request::enabled.at.offset;
    if (!takes(kEnabled, state)) return kStatusValueRefused;

    Configuration next = call.service.store.running();
    std::vector<Entry>& managers = next.entries(kLists[0]);
    Bytes wanted(entry::kSize, 0);
    copy_value(kName, call.request.bytes + request::name.at.offset, wanted.data() + kName.at.offset);
    const std::size_t found = find_entry(kLists[0], managers, 0, wanted);
    if (found == managers.size()) return kStatusUnknownName;

    copy_value(kEnabled, state, managers[found].bytes.data() + kEnabled.at.offset);
    return call.service.store.change(std::move(next));
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadSnmp,          .run = read_snmp,  .sections = kSections, .list = kLists, .count = trapManagers.at},
    {.code = code::kWriteSnmp,         .run = write_snmp, .sections = kSections, .list = kLists, .count = trapManagers.at},
    {.code = code::kAddTrapManager,    .run = add_to_list,      .list = kLists},
    {.code = code::kDeleteTrapManager, .run = delete_from_list, .list = kLists},
    {.code = code::kEnableTrapManager, .run = switch_trap_manager},
};
// clang-format on
}  // namespace

const Area kSnmpArea{.sections = kSections, .lists = kLists, .operations = kOperations};
