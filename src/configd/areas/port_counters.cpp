// What the ports count, and the state of a port's link: the machine's own numbers, less what was there when an operator
// cleared them.
#include <algorithm>
#include <array>
#include <string>

#include "configd/areas/areas.h"
#include "configd/ports.h"
#include "service/codes.h"
#include "service/fields/ports.h"

namespace {
namespace counters = port_statistics_record;

struct Counter {
    Field<std::uint32_t> field;
    std::uint64_t device::Counters::*source;
};
// clang-format off
constexpr Counter kEthernet[] = {
    {counters::goodTransmitted,    &device::Counters::txPackets},
    {counters::goodReceived,       &device::Counters::rxPackets},
    {counters::badTransmitted,     &device::Counters::txErrors},
    {counters::badReceived,        &device::Counters::rxErrors},
    {counters::transmitAborts,     &device::Counters::txAborted},
    {counters::collisions,         &device::Counters::collisions},
    {counters::droppedTransmitted, &device::Counters::txDropped},
    {counters::droppedReceived,    &device::Counters::rxDropped},
};
constexpr Counter kWireless[] = {
    {counters::wirelessReceived,       &device::Counters::rxPackets},
    {counters::wirelessTransmitted,    &device::Counters::txPackets},
    {counters::wirelessReceiveErrors,  &device::Counters::rxErrors},
    {counters::wirelessTransmitErrors, &device::Counters::txErrors},
};
// clang-format on

// A port of the profile is of the profile's kind, whatever stands in for it on this machine.
std::span<const Counter> counters_of(const Profile& profile, const device::Interface& interface)
{
    const ProfilePort* port = port_of_interface(profile, interface.name);
    const device::Kind kind = port ? port->kind : interface.kind;
    return kind == device::Kind::kWireless ? std::span<const Counter>(kWireless) : kEthernet;
}

ClearedCounters::Values values_of(std::span<const Counter> rows, const device::Interface& interface)
{
    ClearedCounters::Values values;
    for (const Counter& row : rows) values.push_back(interface.counters.*row.source);
    return values;
}

std::string name_in(const ComParam& request, TextField field)
{
    return {reinterpret_cast<const char*>(request.bytes + field.at.offset), field.length(request)};
}

ServiceStatus read_counters(Call& call)
{
    const Ports ports(call.service, Ports::Counters::now);
    const std::string name = name_in(call.request, counters::interface);
    const device::Interface* real = ports.find(name);
    if (!real) return kStatusNoDevice;

    const auto rows = counters_of(call.service.profile, *real);
    const auto values = call.service.cleared.since(Counted::kInterfaces, name, values_of(rows, *real));
    for (std::size_t i = 0; i < rows.size(); i++)
        rows[i].field.set(call.answer.record, static_cast<std::uint32_t>(values[i]));  // the low bits, as there is room
    counters::interface.set(call.answer.record, name.c_str());
    return kStatusOk;
}

// What was cleared of interfaces that are gone is forgotten.
ServiceStatus clear_interface(Service& service, const std::string& name)
{
    const Ports ports(service, Ports::Counters::now);
    const device::Interface* real = ports.find(name);
    if (!real) return kStatusNoDevice;

    ClearedCounters::Group next = service.cleared.group(Counted::kInterfaces);
    std::erase_if(next, [&](const auto& each) { return !ports.find(each.first); });
    next[name] = values_of(counters_of(service.profile, *real), *real);
    return service.cleared.set_group(Counted::kInterfaces, std::move(next));
}

ServiceStatus clear_counters(Call& call)
{
    return clear_interface(call.service, name_in(call.request, counters::interface));
}

ServiceStatus clear_wireless(Call& call)
{
    const ProfilePort* port = port_of_role(call.service.profile, PortRole::kWireless);
    return port ? clear_interface(call.service, port->interface) : kStatusNoDevice;
}

ServiceStatus read_link(Call& call)
{
    constexpr std::uint32_t kHundredMegabits = 100;
    const std::string name = name_in(call.request, link_record::interface);
    device::Link link;
    if (const int error = call.service.device.read_link(name.c_str(), link))
        return error == ENODEV ? kStatusNoDevice : device::status_of(error);

    ComParam& answer = call.answer.record;
    link_record::up.set(answer, link.carrier == device::Carrier::kUp);
    link_record::speed.set(answer, link.speed >= kHundredMegabits ? link_record::kHundred : 0);  // and what is faster
    link_record::duplex.set(answer, link.duplex == device::Duplex::kFull ? link_record::kFull : 0);
    link_record::flowControl.set(answer, link.flowControl == device::FlowControl::kOn);
    link_record::interface.set(answer, name.c_str());
    return kStatusOk;
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadPortStatistics,  .run = read_counters},
    {.code = code::kReadLink,            .run = read_link},
    {.code = code::kClearPortStatistics, .run = clear_counters},
    {.code = code::kClearWirelessPort,   .run = clear_wireless},
};
// clang-format on
}  // namespace

const Area kPortCountersArea{.sections = {}, .lists = {}, .operations = kOperations};
