// What the radio does. The access point that it repeats stays known while it does something else.
#include "service/fields/operation_mode.h"

#include "configd/areas/areas.h"
#include "configd/areas/named_mac.h"
#include "service/codes.h"

namespace {
using namespace operation_mode_record;

constexpr Choice kModes[] = {{kAccessPoint, "accesspoint"}, {kWds, "wds"}, {kRepeater, "repeater"}};

ServiceStatus check(const unsigned char* image)
{
    const bool known = mode.get(image) != kRepeater || can_be_a_station(repeated.get(image));
    return known ? kStatusOk : kStatusValueRefused;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::meant (row::choice("mode", mode, kModes, kAccessPoint)),
    row::mac   ("repeated", repeated),
});
// clang-format on
constexpr auto kModeOnly = std::span(kRows).first<1>();
constexpr Section kSections[] = {section("operation_mode", "", kRows, check)};

// Only a repeater's request carries an address; any other has there whatever the record held.
ServiceStatus write_mode(Call& call)
{
    const bool repeats = mode.get(call.request) == kRepeater;
    const std::span<const Setting> rows = repeats ? std::span<const Setting>(kRows) : kModeOnly;
    if (const ServiceStatus refused = write_rows(call, kSections[0], rows)) return refused;
    return read_section(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadOperationMode,  .run = read_section, .sections = kSections},
    {.code = code::kWriteOperationMode, .run = write_mode,   .sections = kSections},
};
// clang-format on
}  // namespace

const Area kOperationModeArea{.sections = kSections, .lists = {}, .operations = kOperations};
