// The stations that the radios know: asked of hostapd where the profile names its socket, else the profile's own.
#include <array>
#include <cstdio>
#include <cstring>

#include "configd/areas/areas.h"
#include "configd/log.h"
#include "service/codes.h"
#include "service/fields/ports.h"

namespace {
using device::Station;
using Stations = std::vector<Station>;

struct Counter {
    wireless_client_entry::At::Field<std::uint32_t> field;
    std::uint32_t Station::*source;
};
// clang-format off
constexpr Counter kCounters[] = {
    {wireless_client_entry::transmittedFrames, &Station::txFrames},
    {wireless_client_entry::receivedFrames,    &Station::rxFrames},
    {wireless_client_entry::transmittedBytes,  &Station::txBytes},
    {wireless_client_entry::receivedBytes,     &Station::rxBytes},
};
// clang-format on

ServiceStatus read_stations(const Service& service, Stations& stations)
{
    const Profile& profile = service.profile;
    if (profile.hostapd.empty()) {
        for (const ProfileRadio& radio : profile.radios)
            stations.insert(stations.end(), radio.clients.begin(), radio.clients.end());
        return kStatusOk;
    }
    const int error = service.device.read_stations(profile.hostapd.c_str(), stations);
    if (error == 0) return kStatusOk;
    log_line(LOG_WARNING, "%s: %s", profile.hostapd.c_str(), std::strerror(error));
    return kStatusNoDevice;
}

std::string name_of(const device::Mac& mac)
{
    char text[sizeof "00:11:22:33:44:55"];
    std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
    return text;
}

ClearedCounters::Values values_of(const Station& station)
{
    ClearedCounters::Values values;
    for (const Counter& counter : kCounters) values.push_back(station.*counter.source);
    return values;
}

ServiceStatus read_clients(Call& call)
{
    Stations stations;
    if (const ServiceStatus refused = read_stations(call.service, stations)) return refused;

    call.answer.table.resize(stations.size() * wireless_client_entry::kSize);
    unsigned char* entry = call.answer.table.data();
    for (const Station& station : stations) {
        const auto values = call.service.cleared.since(Counted::kClients, name_of(station.mac), values_of(station));
        wireless_client_entry::mac.set(entry, station.mac.data());
        wireless_client_entry::state.set(entry, static_cast<std::uint8_t>(station.state));
        for (std::size_t i = 0; i < values.size(); i++)
            kCounters[i].field.set(entry, static_cast<std::uint32_t>(values[i]));
        entry += wireless_client_entry::kSize;
    }
    return kStatusOk;
}

ServiceStatus clear_clients(Call& call)
{
    Stations stations;
    if (const ServiceStatus refused = read_stations(call.service, stations)) return refused;
    ClearedCounters::Group now;
    for (const Station& station : stations) now[name_of(station.mac)] = values_of(station);
    return call.service.cleared.set_group(Counted::kClients, std::move(now));
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadWirelessClients,  .run = read_clients},
    {.code = code::kClearWirelessClients, .run = clear_clients},
};
// clang-format on
}  // namespace

const Area kWirelessClientsArea{.sections = {}, .lists = {}, .operations = kOperations};
