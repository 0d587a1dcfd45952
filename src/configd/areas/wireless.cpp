// The radios as ports.
#include <algorithm>

#include "configd/areas/areas.h"
#include "service/codes.h"
#include "service/fields/wireless_port.h"

namespace {
using namespace wireless_port_record;

constexpr Choice kModes[] = {
    {0, "default"},
    {1, "auto"},
    {2, "11b/g"},
    {3, "11g"},
    {4, "11a"},
    {5, "11a-turbo"},
    {6, "super-g"},
    {7, "super-g-dynamic-turbo"},
    {8, "super-g-static-turbo"},
    {9, "super-a"},
    {10, "super-a-dynamic-turbo"},
    {11, "super-a-static-turbo"},
    {12, "11g-turbo"},
    {13, "11b"},
    {14, "ng"},
};
constexpr int kLastChannel = 196;  // of the 5 GHz band

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::text  ("ssid",    ssid),
    row::choice("mode",    mode,    kModes, 0),
    row::number("channel", channel, {.min = 0, .max = kLastChannel, .factory = 0}),
});
constexpr Section kSections[] = {
    section("wireless", "radio1", kRows),
    section("wireless", "radio2", kRows),
};
// clang-format on

// A radio that was never given a network name shows what the profile says about it.
ServiceStatus read_port(Call& call)
{
    const ServiceStatus status = read_section(call);
    ComParam& answer = call.answer.record;
    if (status != kStatusOk || ssid.length(answer) > 0) return status;

    const auto& radios = call.service.profile.radios;
    const auto known = std::ranges::find(radios, radio.get(answer), &ProfileRadio::name);
    if (known == radios.end()) return kStatusOk;
    ssid.set(answer, known->ssid.c_str());
    mode.set(answer, known->mode);
    channel.set(answer, known->channel);
    return kStatusOk;
}

constexpr Operation kOperations[] = {
    {.code = code::kReadWirelessPort, .run = read_port, .sections = kSections, .name = radio.at},
};
}  // namespace

const Area kWirelessArea{.sections = kSections, .lists = {}, .operations = kOperations};
