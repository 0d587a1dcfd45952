// The radios: each as a port (140, 143), and how the first one sends and encrypts (1140, 1141). A radio is one object
// of the stored file and one image here. The two records keep their fields in different places, so each field has its
// own in the image; the network name and the channel, which both carry, stand where the port record has them.
#include <algorithm>

#include "configd/areas/areas.h"
#include "service/codes.h"
#include "service/fields/wireless_port.h"
#include "service/fields/wireless_settings.h"

namespace {
namespace port = wireless_port_record;
namespace settings = wireless_record;

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
constexpr std::uint8_t kEitherBand[] = {0, 1}, kFiveGhz[] = {4, 5, 9, 10, 11};  // modes; the others: 2.4 GHz

constexpr Choice kDomains[] = {
    {settings::kFcc, "fcc"},       {settings::kEtsi, "etsi"},   {settings::kSpain, "spain"},
    {settings::kFrance, "france"}, {settings::kJapan, "japan"},
};
constexpr Choice kKeyTypes[] = {
    {settings::kAscii64, "asc64"}, {settings::kHex64, "hex64"},  {settings::kAscii128, "asc128"},
    {settings::kHex128, "hex128"}, {settings::kTyped152, "152"},
};
constexpr Choice kKeyLengths[] = {{settings::k64Bit, "64"}, {settings::k128Bit, "128"}, {settings::k152Bit, "152"}};

// The channels of the 2.4 GHz band in each domain.
struct Channels {
    std::uint16_t domain, first, last;
};
constexpr Channels kChannels[] = {
    {settings::kFcc, 1, 11},     {settings::kEtsi, 1, 13},  {settings::kSpain, 1, 13},
    {settings::kFrance, 10, 13}, {settings::kJapan, 1, 14},
};
constexpr Channels kAnyDomain{0, 1, 14};  // of a radio that has none
constexpr std::uint16_t kAutomatic = 0, kFirstOfFiveGhz = 34, kLastChannel = 196;

ServiceStatus check_channel(const unsigned char* image)
{
    const std::uint16_t channel = port::channel.get(image);
    if (channel == kAutomatic) return kStatusOk;
    const auto known = std::ranges::find(kChannels, settings::domain.get(image), &Channels::domain);
    const Channels& low = known == std::end(kChannels) ? kAnyDomain : *known;

    const auto in = [mode = port::mode.get(image)](auto& modes) {
        return std::ranges::find(modes, mode) != std::end(modes);
    };
    const bool takesHigh = in(kFiveGhz) || in(kEitherBand), takesLow = !in(kFiveGhz);
    const bool suits = (takesLow && channel >= low.first && channel <= low.last) ||
                       (takesHigh && channel >= kFirstOfFiveGhz && channel <= kLastChannel);
    return suits ? kStatusOk : kStatusChannelRefused;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::choice   ("mode",               port::mode,                  kModes, 0),
    row::text     ("ssid",               port::ssid,                  {.emptyKeeps = true}),
    row::number   ("channel",            port::channel,               {.min = 0,   .max = kLastChannel, .factory = kAutomatic}),
    row::flag     ("hidden",             settings::hidden,            false),
    row::choice   ("domain",             settings::domain,            kDomains, settings::kFcc),
    row::number   ("wep_key",            settings::keyIndex,          {.min = 0,   .max = 4,    .factory = 0}),
    row::choice   ("wep_key_length",     settings::keyLength,         kKeyLengths, settings::k64Bit),
    row::secret   ("passphrase",         settings::passphrase),
    row::choice   ("key1_type",          settings::keyType[0],        kKeyTypes, settings::kAscii64),
    row::key_bytes("key1",               settings::key[0]),
    row::choice   ("key2_type",          settings::keyType[1],        kKeyTypes, settings::kAscii64),
    row::key_bytes("key2",               settings::key[1]),
    row::choice   ("key3_type",          settings::keyType[2],        kKeyTypes, settings::kAscii64),
    row::key_bytes("key3",               settings::key[2]),
    row::choice   ("key4_type",          settings::keyType[3],        kKeyTypes, settings::kAscii64),
    row::key_bytes("key4",               settings::key[3]),
    row::number   ("rts_threshold",      settings::rtsThreshold,      {.min = 0,   .max = 2347, .factory = 2347}),
    row::number   ("fragment_threshold", settings::fragmentThreshold, {.min = 256, .max = 2346, .factory = 2346}),
    row::number   ("beacon_interval",    settings::beaconInterval,    {.min = 20,  .max = 1000, .factory = 100}),
    row::number   ("dtim_interval",      settings::dtimInterval,      {.min = 1,   .max = 255,  .factory = 1}),
});
// clang-format on
constexpr std::array kPortRows{kRows[0], kRows[1], kRows[2]};
constexpr auto kSettingRows = std::span(kRows).subspan<1>();  // what 1141 writes: all but the mode
constexpr auto kOwnRows = std::span(kRows).subspan<3>();      // those of them that stand where their record has them

constexpr Section kSections[] = {
    section("wireless", "radio1", kRows, check_channel),
    section("wireless", "radio2", kPortRows, check_channel),
};
constexpr const Section& kFirst = kSections[0];

void give(std::span<const Setting> rows, const Bytes& image, ComParam& answer)
{
    for (const Setting& row : rows) copy_value(row, image.data() + row.at.offset, answer.bytes + row.at.offset);
}

// nullptr: the device has no such radio.
const ProfileRadio* profile_radio(const Profile& profile, const Section& section)
{
    const auto found = std::ranges::find(profile.radios, section.name, &ProfileRadio::name);
    return found == profile.radios.end() ? nullptr : &*found;
}

// A radio that was never set is as the profile says.
Bytes in_force(Bytes image, const ProfileRadio& known)
{
    unsigned char* radio = image.data();
    const bool isSet =
        port::ssid.length(radio) > 0 || port::mode.get(radio) != 0 || port::channel.get(radio) != kAutomatic;
    if (isSet) return image;
    port::ssid.set(radio, known.ssid.c_str());
    port::mode.set(radio, known.mode);
    port::channel.set(radio, known.channel);
    return image;
}

ServiceStatus write_radio(Call& call, const Section& section, std::span<const Setting> rows, const ComParam& values)
{
    const ProfileRadio* radio = profile_radio(call.service.profile, section);
    if (!radio) return kStatusNoDevice;
    Configuration next = call.service.store.running();
    Bytes& image = next.values(section);
    image = in_force(std::move(image), *radio);
    std::optional<Bytes> shown = values_known(call, section);
    if (shown) shown = in_force(*shown, *radio);
    if (const ServiceStatus refused = take_values(section, rows, values, image, shown)) return refused;
    return call.service.store.change(std::move(next));
}

ServiceStatus read_port(Call& call)
{
    const Section* section = requested_section(call);
    if (!section) return kStatusUnknownName;
    const ProfileRadio* known = profile_radio(call.service.profile, *section);
    if (!known) return kStatusNoDevice;
    give(kPortRows, in_force(call.service.store.running().values(*section), *known), call.answer.record);
    show_origin(call, *section);
    port::radio.set(call.answer.record, section->name);
    return kStatusOk;
}

ServiceStatus write_port(Call& call)
{
    const Section* section = requested_section(call);
    if (!section) return kStatusUnknownName;
    if (const ServiceStatus refused = write_radio(call, *section, kPortRows, call.request)) return refused;
    return read_port(call);
}

ServiceStatus read_settings(Call& call)
{
    const ProfileRadio* known = profile_radio(call.service.profile, kFirst);
    if (!known) return kStatusNoDevice;
    Bytes image = in_force(call.service.store.running().values(kFirst), *known);
    give(kOwnRows, image, call.answer.record);
    show_origin(call, kFirst);
    settings::networkName.set(call.answer.record, port::ssid.get(image.data()));
    settings::channel.set(call.answer.record, port::channel.get(image.data()));
    return kStatusOk;
}

// The answer stays empty: it would carry keys that the one who wrote them has.
ServiceStatus write_settings(Call& call)
{
    static_assert(settings::networkName.at.width == port::ssid.at.width);
    ComParam values = call.request;
    port::ssid.set(values, settings::networkName.get(values));
    port::channel.set(values, settings::channel.get(values));
    return write_radio(call, kFirst, kSettingRows, values);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadWirelessPort,      .run = read_port,  .sections = kSections, .name = port::radio.at},
    {.code = code::kWriteWirelessPort,     .run = write_port, .sections = kSections, .name = port::radio.at},
    {.code = code::kReadWirelessSettings,  .run = read_settings,  .sections = {&kFirst, 1}},
    {.code = code::kWriteWirelessSettings, .run = write_settings, .sections = {&kFirst, 1}},
};
// clang-format on
}  // namespace

const Area kWirelessArea{.sections = kSections, .lists = {}, .operations = kOperations};
