// Management access: ports, time-outs and who may come in from the WAN side.
#include "service/fields/management.h"

#include "configd/areas/areas.h"
#include "configd/areas/ipv4.h"
#include "service/codes.h"

namespace {
using namespace management_record;

constexpr Choice kRemoteModes[] = {
    {kRemoteAll, "all"}, {kRemoteOne, "one"}, {kRemoteTwo, "two"}, {kRemoteDisabled, "disabled"}};

ServiceStatus check(const unsigned char* image)
{
    if (httpPort.get(image) == telnetPort.get(image)) return kStatusPortInUse;

    const std::uint32_t first = remoteClient[0].get(image), second = remoteClient[1].get(image);
    if (first != 0 && first == second) return kStatusDuplicateAddress;
    const std::uint8_t mode = remoteMode.get(image);
    const bool needsFirst = mode == kRemoteOne || mode == kRemoteTwo;
    if ((needsFirst && first == 0) || (mode == kRemoteTwo && second == 0)) return kStatusNotSet;
    return kStatusOk;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::number ("http_port",               httpPort,        {.min = 1, .max = 65535, .factory = 80}),
    row::number ("http_timeout_minutes",    httpTimeout,     {.min = 1, .max = 60,    .factory = 10}),
    row::number ("telnet_port",             telnetPort,      {.min = 1, .max = 65535, .factory = 23}),
    row::number ("session_timeout_minutes", sessionTimeout,  {.min = 1, .max = 60,    .factory = 10}),
    row::choice ("remote_management",       remoteMode,      kRemoteModes,            kRemoteDisabled),
    row::address("remote_client_1",         remoteClient[0], 0, is_host_or_none),
    row::address("remote_client_2",         remoteClient[1], 0, is_host_or_none),
});
constexpr Section kSections[] = {section("management", "", kRows, check)};

constexpr Operation kOperations[] = {
    {.code = code::kReadManagement,  .run = read_section,  .sections = kSections},
    {.code = code::kWriteManagement, .run = write_section, .sections = kSections},
};
// clang-format on
}  // namespace

const Area kManagementArea{.sections = kSections, .lists = {}, .operations = kOperations};
