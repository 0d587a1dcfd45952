#include "cli/tables.h"

#include <cstdio>

namespace {
constexpr std::uint32_t kDeviceFeatures = 0x3fd;  // every bit from 0 to 9 but bit 1
constexpr std::uint32_t kDeviceInterfaces = 3;    // both kinds of port

// Either mask is enough: a row that asks for all bits of one and any bit of the other is admitted by each of them.
bool match(std::uint32_t device, std::uint32_t any, std::uint32_t all)
{
    return (device & any) != 0 || (device & all) == all;
}
}  // namespace

void CliGetFeature(std::uint32_t* out) { *out = kDeviceFeatures; }
void CliProbeInterface(std::uint32_t* out) { *out = kDeviceInterfaces; }

bool CliMatchFeature(std::uint32_t device, std::uint32_t any, std::uint32_t all) { return match(device, any, all); }
bool CliMatchInterface(std::uint32_t device, std::uint32_t any, std::uint32_t all) { return match(device, any, all); }

bool row_admitted(const CliCmdRow& row)
{
    return match(kDeviceFeatures, row.featureAny, row.featureAll) &&
           match(kDeviceInterfaces, row.interfaceAny, row.interfaceAll);
}

Action CliGetActionFunc(std::uint32_t cmdId)
{
    for (const CliCmdDispRow* row = gCliCmdDispTable.data(); row->cmdId != kCommandEnd; ++row) {
        if (row->cmdId != cmdId) continue;
        if (!row->action) std::printf("Action function is not supported\n");
        return row->action;
    }
    std::printf("Command dispatch entry not found\n");
    return nullptr;
}
