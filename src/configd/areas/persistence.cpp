// Saving, clearing and restarting.
#include "configd/areas/address.h"
#include "configd/areas/areas.h"
#include "configd/areas/dhcp.h"
#include "configd/areas/firewall.h"
#include "configd/areas/routes.h"
#include "configd/areas/time.h"
#include "configd/log.h"
#include "service/codes.h"

namespace {
// What the device's own services read. All of it is written; the first failure is told.
ServiceStatus apply_rules(const Service& service)
{
    const int firewall = apply_firewall(service), dhcp = apply_dhcp(service), ntp = apply_ntp(service);
    return storage_status(firewall != 0 ? firewall : dhcp != 0 ? dhcp : ntp);
}

ServiceStatus save(Call& call) { return call.service.store.save(); }

ServiceStatus clear(Call& call)
{
    const Configuration before = call.service.store.running();
    const ServiceStatus status = call.service.store.clear();
    if (status != kStatusOk) return status;
    replace_routes(call.service, before);
    return apply_rules(call.service);
}

ServiceStatus restart(Call& call)
{
    Service& service = call.service;
    if (service.profile.restart == RestartMeans::kDevice) {
        log_line(LOG_NOTICE, "restarting the device");
        return device::status_of(service.device.restart_machine());
    }
    log_line(LOG_NOTICE, "going back to the saved configuration");
    const Configuration before = service.store.running();
    service.store.restore();
    const int address = apply_lan_address(service), zone = apply_time_zone(service);
    replace_routes(service, before);
    const ServiceStatus rules = apply_rules(service);
    if (address == 0 && zone == 0) return rules;
    return device::status_of(address != 0 ? address : zone);
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
