// The log level.
#include "service/fields/system_log.h"

#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
constexpr auto kRows = std::to_array<Setting>({
    row::number("level", system_log_record::level, {.min = 1, .max = 7, .factory = 3}),
});
constexpr Section kSections[] = {section("system_log", "", kRows)};

constexpr Operation kOperations[] = {
    {.code = code::kReadSystemLog, .run = read_section, .sections = kSections},
};
}  // namespace

const Area kSystemLogArea{.sections = kSections, .lists = {}, .operations = kOperations};
