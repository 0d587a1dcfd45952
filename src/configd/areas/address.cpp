// The IP settings of the LAN and the WAN side.
#include "configd/areas/address.h"

#include <cerrno>
#include <cstring>

#include "configd/areas/areas.h"
#include "configd/areas/ipv4.h"
#include "configd/log.h"
#include "service/codes.h"
#include "service/fields/address.h"

namespace {
using namespace address_record;

constexpr Choice kModes[] = {{kAutomatic, "automatic"}, {kStatic, "static"}};

ServiceStatus check(const unsigned char* image)
{
    if (mode.get(image) != kStatic) return kStatusOk;
    const std::uint32_t own = address.get(image), mask = netmask.get(image), router = gateway.get(image);
    if (mask == 0 || !is_host_or_none(primaryDns.get(image))) return kStatusValueRefused;
    if (!is_host_of_network(own, mask)) return kStatusAddressOutOfRange;
    if (router != 0 && ((router & mask) != (own & mask) || !is_host_of_network(router, mask)))
        return kStatusAddressOutOfRange;
    return kStatusOk;
}

constexpr auto rows(Mode factoryMode, std::uint32_t factoryAddress, std::uint32_t factoryNetmask)
{
    // clang-format off
    return std::to_array<Setting>({
        row::choice ("mode",        mode,       kModes, factoryMode),
        row::address("address",     address,    factoryAddress),
        row::address("netmask",     netmask,    factoryNetmask, is_netmask),
        row::address("gateway",     gateway,    0),
        row::address("name_server", primaryDns, 0),
    });
    // clang-format on
}

constexpr std::uint32_t kLanFactory = 0xC0A80101, kClassC = 0xFFFFFF00;  // 192.168.1.1/24
constexpr auto kLanRows = rows(kStatic, kLanFactory, kClassC);
constexpr auto kWanRows = rows(kAutomatic, 0, 0);
constexpr Section kSections[] = {
    section("addresses", "lan", kLanRows, check),
    section("addresses", "wan", kWanRows, check),
};
constexpr const Section& kLan = kSections[0];
constexpr const Section& kWan = kSections[1];

NetworkAddress in_force(const Bytes& settings, const device::Interface* interface)
{
    if (mode.get(settings.data()) == kStatic) return {address.get(settings.data()), netmask.get(settings.data())};
    return interface ? NetworkAddress{interface->address, interface->netmask} : NetworkAddress{};
}

ServiceStatus read_address(Call& call)
{
    if (const ServiceStatus refused = read_section(call)) return refused;
    ComParam& answer = call.answer.record;
    if (mode.get(answer) == kStatic) return kStatusOk;

    const Ports ports(call.service);
    const bool isLan = requested_section(call) == &kLan;
    const NetworkAddress now = isLan ? lan_address(call.service, ports) : wan_address(call.service, ports);
    address.set(answer, now.address);
    netmask.set(answer, now.netmask);
    return kStatusOk;
}

// The router that the LAN's settings name; 0: none. The device's own address stands for none as well: the console
// cannot ask for an address without one.
std::uint32_t router_of(const Bytes& lan)
{
    const std::uint32_t router = gateway.get(lan.data());
    return mode.get(lan.data()) == kStatic && router != address.get(lan.data()) ? router : 0;
}

std::string lan_carrier(const Profile& profile)
{
    const ProfilePort* port = port_of_role(profile, PortRole::kLan);
    return port && profile.bridge.empty() ? port->interface : profile.bridge;
}

device::Route default_route(const std::string& interface, std::uint32_t router)
{
    device::Route route{.gateway = router};
    interface.copy(route.interface, sizeof route.interface - 1);
    return route;
}

int apply_router(const Service& service, const std::string& interface, std::uint32_t old, std::uint32_t wanted)
{
    if (old != 0 && old != wanted) {
        const int error = service.device.delete_route(default_route(interface, old));
        if (error != 0 && error != ESRCH) return error;  // it may have gone with the interface's old address
    }
    const int error = wanted == 0 ? 0 : service.device.add_route(default_route(interface, wanted));
    return error == EEXIST ? 0 : error;  // it is there already, or the WAN side has one, which goes first
}

// The server of the settings first, then the machine's own, without the one that the settings named before.
int apply_name_server(const Service& service, std::uint32_t old, std::uint32_t wanted)
{
    const char* file = service.profile.resolver.c_str();
    const auto present = service.device.read_name_servers(file);
    std::array<std::uint32_t, 2> servers{wanted};
    std::size_t count = wanted == 0 ? 0 : 1;
    for (const std::uint32_t each : present)
        if (each != 0 && each != old && each != wanted && count < servers.size()) servers[count++] = each;
    return servers == present ? 0 : service.device.set_name_servers(file, servers);
}

// Makes the machine's LAN what the settings say, where the profile leaves that to the service. 0 or an errno value.
int apply_lan(const Service& service, const Bytes& before)
{
    const Bytes& lan = service.store.running().values(kLan);
    const std::string carrier = lan_carrier(service.profile);
    if (!service.profile.manageAddresses || mode.get(lan.data()) != kStatic || carrier.empty()) return 0;
    int error = service.device.set_address(carrier.c_str(), address.get(lan.data()), netmask.get(lan.data()));
    service.interfaces.forget();
    if (error == 0) error = apply_router(service, carrier, router_of(before), router_of(lan));
    if (error == 0) error = apply_name_server(service, primaryDns.get(before.data()), primaryDns.get(lan.data()));
    return error;
}

// Without a fixed address the record shows the machine's, which comes back as it was shown and sets nothing.
Bytes as_shown(Bytes stored, const ComParam& request)
{
    if (mode.get(stored.data()) != kAutomatic || mode.get(request) != kAutomatic) return stored;
    address.set(stored.data(), address.get(request));
    netmask.set(stored.data(), netmask.get(request));
    return stored;
}

ServiceStatus store_settings(Call& call, const Section& section)
{
    Store& store = call.service.store;
    std::optional<Bytes> shown = values_known(call, section);
    if (shown) shown = as_shown(*shown, call.request);
    Configuration next = store.running();
    Bytes& values = next.values(section);
    if (const ServiceStatus refused = take_values(section, section.settings, call.request, values, shown))
        return refused;
    return values == store.running().values(section) ? kStatusOk : store.change(std::move(next));
}

ServiceStatus write_address(Call& call)
{
    const Section* section = requested_section(call);
    if (!section) return kStatusUnknownName;
    Service& service = call.service;
    const Configuration before = service.store.running();
    if (const ServiceStatus refused = store_settings(call, *section)) return refused;
    if (const int error = section == &kLan ? apply_lan(service, before.values(kLan)) : 0) {
        const Bytes refused = service.store.running().values(kLan);
        service.store.change(before);
        apply_lan(service, refused);
        return device::status_of(error);
    }
    return read_address(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadAddress,  .run = read_address,  .sections = kSections, .name = interface.at},
    {.code = code::kWriteAddress, .run = write_address, .sections = kSections, .name = interface.at},
};
// clang-format on
}  // namespace

const Area kAddressArea{.sections = kSections, .lists = {}, .operations = kOperations};

NetworkAddress lan_address(const Service& service, const Ports& ports)
{
    return in_force(service.store.running().values(kLan), ports.lan());
}

NetworkAddress wan_address(const Service& service, const Ports& ports)
{
    return in_force(service.store.running().values(kWan), ports.of(PortRole::kWan));
}

std::array<std::uint32_t, 2> name_servers(const Service& service)
{
    auto servers = service.device.read_name_servers(service.profile.resolver.c_str());
    const std::uint32_t set = primaryDns.get(service.store.running().values(kLan).data());
    return set == 0 ? servers : std::array{set, servers[0] == set ? servers[1] : servers[0]};
}

device::Route lan_default_route(const Service& service)
{
    return default_route(lan_carrier(service.profile), router_of(service.store.running().values(kLan)));
}

int apply_lan_address(const Service& service) { return apply_lan(service, service.store.running().values(kLan)); }
