// SNMP communities.
#include "service/fields/snmp.h"

#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
constexpr auto kRows = std::to_array<Setting>({
    row::secret("read_community", snmp_record::readCommunity, {.factory = "public", .min = 1}),
});
constexpr Section kSections[] = {section("snmp", "", kRows)};

constexpr Operation kOperations[] = {
    {.code = code::kReadSnmp, .run = read_section, .sections = kSections},
};
}  // namespace

const Area kSnmpArea{.sections = kSections, .lists = {}, .operations = kOperations};
