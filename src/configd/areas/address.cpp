// The IP settings of the LAN and the WAN side.
#include "configd/areas/address.h"

#include <cstring>

#include "configd/areas/areas.h"
#include "configd/log.h"
#include "service/codes.h"
#include "service/fields/address.h"

namespace {
using namespace address_record;

constexpr Choice kModes[] = {{kAutomatic, "automatic"}, {kStatic, "static"}};

// A netmask's bits stand in one block from the top.
bool is_netmask(std::int64_t value)
{
    const auto holes = ~static_cast<std::uint32_t>(value);
    return (holes & (holes + 1)) == 0;
}

// An address that one machine can have.
bool is_host(std::uint32_t value)
{
    constexpr std::uint32_t kThisNetwork = 0, kLoopback = 127, kMulticast = 224;
    const std::uint32_t first = value >> 24;
    return first != kThisNetwork && first != kLoopback && first < kMulticast;
}

ServiceStatus check(const unsigned char* image)
{
    if (mode.get(image) != kStatic) return kStatusOk;
    const std::uint32_t own = address.get(image), mask = netmask.get(image), router = gateway.get(image);
    if (!is_host(own) || mask == 0) return kStatusAddressOutOfRange;
    const bool hasEnds = ~mask > 1;  // a network of one or two addresses has no network and broadcast address
    if (hasEnds && ((own & ~mask) == 0 || (own | mask) == 0xFFFFFFFF)) return kStatusAddressOutOfRange;
    if (router != 0 && (router & mask) != (own & mask)) return kStatusAddressOutOfRange;
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

ServiceStatus write_address(Call& call)
{
    const Section* section = requested_section(call);
    if (!section) return kStatusUnknownName;
    const Configuration before = call.service.store.running();
    if (const ServiceStatus refused = write_rows(call, *section, section->settings)) return refused;
    if (const int error = section == &kLan ? apply_lan_address(call.service) : 0) {
        call.service.store.change(before);
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

int apply_lan_address(const Service& service)
{
    const Bytes& lan = service.store.running().values(kLan);
    const ProfilePort* port = port_of_role(service.profile, PortRole::kLan);
    if (!service.profile.manageAddresses || mode.get(lan.data()) != kStatic || !port) return 0;
    const std::string& carrier = service.profile.bridge.empty() ? port->interface : service.profile.bridge;
    return service.device.set_address(carrier.c_str(), address.get(lan.data()), netmask.get(lan.data()));
}
