// The bridge that joins the LAN ports, where the device profile names one. Its state is the kernel's alone: nothing of
// it is stored.
#include "service/fields/bridge.h"

#include <algorithm>

#include "configd/areas/areas.h"
#include "configd/linux/bridge.h"
#include "service/codes.h"

namespace {
void give_ports(const std::vector<device::BridgePort>& ports, ComParam& answer)
{
    const std::size_t count = std::min(ports.size(), bridge_record::kMostPorts);
    bridge_record::ports.set(answer, static_cast<std::uint16_t>(count));
    for (std::size_t i = 0; i < count; i++) {
        unsigned char* place = answer.bytes + bridge_record::kFirstPort + i * bridge_port::kSize;
        bridge_port::name.set(place, ports[i].name.c_str());
        bridge_port::number.set(place, ports[i].number);
        bridge_port::state.set(place, ports[i].state);
        bridge_port::cost.set(place, ports[i].cost);
        bridge_port::priority.set(place, ports[i].priority);
    }
}

void give_entries(const std::vector<device::BridgeEntry>& entries, std::vector<unsigned char>& table)
{
    for (const device::BridgeEntry& each : entries) {
        unsigned char entry[bridge_entry::kSize] = {};
        bridge_entry::mac.set(entry, each.mac.data());
        bridge_entry::port.set(entry, each.port);
        bridge_entry::own.set(entry, each.own);
        bridge_entry::age.set(entry, each.age);
        table.insert(table.end(), std::begin(entry), std::end(entry));
    }
}

ServiceStatus read_bridge(Call& call)
{
    const std::string& name = call.service.profile.bridge;
    device::Bridge bridge;
    if (const int error = device::read_bridge(name, bridge)) return device::status_of(error);
    ComParam& answer = call.answer.record;
    bridge_record::name.set(answer, name.c_str());
    bridge_record::stp.set(answer, bridge.stp);
    bridge_record::id.set(answer, bridge.id.c_str());
    bridge_record::root.set(answer, bridge.root.c_str());
    bridge_record::rootCost.set(answer, bridge.rootCost);
    give_ports(bridge.ports, answer);
    give_entries(bridge.entries, call.answer.table);
    return kStatusOk;
}

ServiceStatus write_bridge(Call& call)
{
    const bool on = bridge_record::stp.get(call.request) == 1;
    if (const int error = device::set_bridge_stp(call.service.profile.bridge, on)) return device::status_of(error);
    return read_bridge(call);
}

constexpr Operation kOperations[] = {
    {.code = code::kReadBridgeTable, .run = read_bridge},
    {.code = code::kWriteBridge, .run = write_bridge},
};
}  // namespace

const Area kBridgeArea{.sections = {}, .lists = {}, .operations = kOperations};
