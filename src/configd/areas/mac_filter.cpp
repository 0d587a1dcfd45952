// The MAC filter: its mode and its list of named addresses.
#include "service/fields/mac_filter.h"

#include "configd/areas/areas.h"
#include "configd/areas/named_mac.h"
#include "configd/table_sizes.h"
#include "service/codes.h"

namespace {
using namespace mac_filter_record;

constexpr Choice kModes[] = {{kDisabled, "disabled"}, {kGrant, "grant"}, {kDeny, "deny"}};

constexpr auto kRows = std::to_array<Setting>({
    row::choice("mode", mode, kModes, kDisabled),
});
constexpr Section kSections[] = {section("mac_filter", "", kRows)};

constexpr auto kColumns = named_mac_columns(name.at, mac.at);
constexpr Identity kIdentities[] = {
    {kStatusDuplicateName, kStatusUnknownName},
    {kStatusDuplicateAddress, kStatusUnknownAddress},
};
constexpr List kLists[] = {{"mac_filters", kColumns, kIdentities, named_mac_entry::kSize, kMostMacFilters}};

ServiceStatus read_filter(Call& call)
{
    const ServiceStatus status = read_list(call);
    return status == kStatusOk ? read_section(call) : status;
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadMacFilter,      .run = read_filter,      .sections = kSections, .list = &kLists[0]},
    {.code = code::kAddMacFilter,       .run = add_named_mac,    .list = &kLists[0]},
    {.code = code::kDeleteMacFilter,    .run = delete_from_list, .list = &kLists[0]},
    {.code = code::kWriteMacFilterMode, .run = write_section,    .sections = kSections},
};
// clang-format on
}  // namespace

const Area kMacFilterArea{.sections = kSections, .lists = kLists, .operations = kOperations};
