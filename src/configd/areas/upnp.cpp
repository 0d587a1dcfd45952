// UPnP.
#include "service/fields/upnp.h"

#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
constexpr auto kRows = std::to_array<Setting>({
    row::flag("enabled", upnp_record::enabled, false),
});
constexpr Section kSections[] = {section("upnp", "", kRows)};

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadUpnp,  .run = read_section,  .sections = kSections},
    {.code = code::kWriteUpnp, .run = write_section, .sections = kSections},
};
// clang-format on
}  // namespace

const Area kUpnpArea{.sections = kSections, .lists = {}, .operations = kOperations};
