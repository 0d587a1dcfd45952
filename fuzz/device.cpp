#include "fuzz/device.h"

#include <crypt.h>

#include "configd/areas/address.h"
#include "configd/areas/dhcp.h"
#include "configd/areas/firewall.h"
#include "configd/areas/password.h"
#include "configd/areas/routes.h"
#include "configd/areas/time.h"
#include "configd/remote_log.h"
#include "configd/system_log.h"
#include "fuzz/fuzzing.h"

// In the place of the hash library's.
extern "C" char* crypt_rn(const char* password, const char* setting, void* data, int size)
{
    unsigned hash = 2166136261U;
    for (; *password; password++) hash = (hash ^ static_cast<unsigned char>(*password)) * 16777619U;
    auto* text = static_cast<char*>(data);
    std::snprintf(text, static_cast<std::size_t>(size), "%.29s$%08x", setting, hash);
    return text;
}

// In the place of configd/remote_log.cpp's.
void send_to(const RemoteServer&, const RemoteEntry&) {}

FuzzedDevice::FuzzedDevice()
{
    machine = {};
    machine.interfaces = {interface_named("eth0", 1, 0xC0A80101), interface_named("eth1", 2, 0x0A090002),
                          interface_named("wlan0", 3)};
    system_log() = {};
}

void FuzzedDevice::start()
{
    Profile profile = built_in_profile();
    profile.restart = RestartMeans::kReload;
    profile.clock = ClockMeans::kOffset;
    profile.manageAddresses = true;
    profile.timeZone = "zone";
    profile.resolver = "resolver";
    const Storage files = storage.operations();
    service.reset(new Service{kMachineStandIn, profile, Store(model_, files, {"run", "state"}),
                              ClearedCounters(files, "run"), RuleFile(files, "run"),
                              RuleFile(files, "run", RuleFile::kDhcpName), RuleFile(files, "run", RuleFile::kTimeName),
                              Attempts(files, "run")});
    service->store.start();
    warn_of_factory_password(*service);
    apply_lan_address(*service);
    apply_time_zone(*service);
    apply_dhcp(*service);
    apply_ntp(*service);
    apply_firewall(*service);
    restore_routes(*service);
}

void FuzzedDevice::check_stored_form() const
{
    const std::string text = service->store.running().text();
    Configuration again(model_);
    std::string why;
    holds(again.parse(text, why), why.c_str());
    holds(again.text() == text, "the running configuration reads back as another");
}
