// Management access: ports, time-outs and who may come in from the WAN side.
#include "service/fields/management.h"

#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
using namespace management_record;

// How many clients on the WAN side may manage the device.
constexpr Choice kRemoteModes[] = {{1, "all"}, {2, "one"}, {3, "two"}, {kRemoteDisabled, "disabled"}};

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::number("http_port",               httpPort,       {.min = 1, .max = 65535, .factory = 80}),
    row::number("http_timeout_minutes",    httpTimeout,    {.min = 1, .max = 60,    .factory = 10}),
    row::number("telnet_port",             telnetPort,     {.min = 1, .max = 65535, .factory = 23}),
    row::number("session_timeout_minutes", sessionTimeout, {.min = 1, .max = 60,    .factory = 10}),
    row::choice("remote_management",       remoteMode,     kRemoteModes,            kRemoteDisabled),
});
constexpr Section kSections[] = {section("management", "", kRows)};

constexpr Operation kOperations[] = {
    {.code = code::kReadManagement,  .run = read_section,  .sections = kSections},
    {.code = code::kWriteManagement, .run = write_section, .sections = kSections},
};
// clang-format on
}  // namespace

const Area kManagementArea{.sections = kSections, .lists = {}, .operations = kOperations};
