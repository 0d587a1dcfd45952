// Saving, clearing and restarting.
#include "configd/areas/address.h"
#include "configd/areas/areas.h"
#include "configd/log.h"
#include "service/codes.h"

namespace {
ServiceStatus save(Call& call) { return call.service.store.save(); }

ServiceStatus clear(Call& call) { return call.service.store.clear(); }

ServiceStatus restart(Call& call)
{
    Service& service = call.service;
    if (service.profile.restart == RestartMeans::kDevice) {
        log_line(LOG_NOTICE, "restarting the device");
        return device::status_of(service.device.restart_machine());
    }
    log_line(LOG_NOTICE, "going back to the saved configuration");
    service.store.restore();
    return device::status_of(apply_lan_address(service));
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kSaveConfiguration,  .run = save},
    {.code = code::kClearConfiguration, .run = clear},
    {.code = code::kRestart,            .run = restart},
};
// clang-format on
}  // namespace

const Area kPersistenceArea{.sections = {}, .lists = {}, .operations = kOperations};
