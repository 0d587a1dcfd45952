// A model with a setting of every kind, so that tests of the mechanism do not depend on what the device offers.
#pragma once

#include "configd/configuration.h"
#include "configd/settings.h"

namespace sample {
inline constexpr TextField title{12, 8};
inline constexpr Field<std::uint16_t> port{20};
inline constexpr Field<std::int16_t> zone{22};
inline constexpr Field<std::uint8_t> enabled{24};
inline constexpr Field<std::uint8_t> mode{25};
inline constexpr Field<std::uint32_t> address{28};
inline constexpr MacField mac{32};
inline constexpr TextField secret{40, 16};

inline constexpr Choice kModes[] = {{1, "automatic"}, {2, "static"}};

inline ServiceStatus check(const unsigned char* image)
{
    return mode.get(image) == 2 && address.get(image) == 0 ? kStatusAddressOutOfRange : kStatusOk;
}

// clang-format off
inline constexpr auto kRows = std::to_array<Setting>({
    row::text   ("title",   title,   {.factory = "box", .emptyKeeps = true}),
    row::number ("port",    port,    {.min = 1,  .max = 65535, .factory = 80}),
    row::number ("zone",    zone,    {.min = -1, .max = 31,    .factory = -1}),
    row::flag   ("enabled", enabled, false),
    row::choice ("mode",    mode,    kModes, 1),
    row::address("address", address, 0),
    row::mac    ("mac",     mac),
    row::secret ("key",     secret,  {.min = 0}),
});
inline constexpr Section kSections[] = {
    section("alone", "",      kRows, check),
    section("pair",  "first", kRows),
    section("pair",  "other", kRows),
};

namespace entry
{
using At = Within<40>;
inline constexpr At::TextField name{0, 31};
inline constexpr At::MacField mac{31};
}
namespace request
{
inline constexpr TextField name{12, 31};
inline constexpr MacField mac{43};
}
inline constexpr Column kColumns[] = {
    {row::text("name", entry::name, {.min = 1}), request::name.at, 0},
    {row::mac ("mac",  entry::mac),              request::mac.at,  1},
};
inline constexpr Identity kIdentities[] = {
    {kStatusDuplicateName,    kStatusUnknownName},
    {kStatusDuplicateAddress, kStatusUnknownAddress},
};
inline constexpr List kList{"filter", kColumns, kIdentities, entry::At::room, 3};
// clang-format on

inline Model model() { return {{&kSections[0], &kSections[1], &kSections[2]}, {&kList}}; }
}  // namespace sample
