// The time zones that the device offers. The index of a row is what the time record holds.
#pragma once

#include <array>
#include <cstdint>

struct ZoneName {
    const char* file;     // of the zone's rules
    const char* display;  // as the operator sees and types it
};

// clang-format off
inline constexpr auto tzFileName = std::to_array<ZoneName>({
    {"MHT.tz",   "GMT-12:00"},
    {"SST.tz",   "GMT-11:00"},
    {"HST.tz",   "GMT-10:00"},
    {"AKST.tz",  "GMT-09:00"},
    {"PST.tz",   "GMT-08:00"},
    {"MST.tz",   "GMT-07:00"},
    {"CST.tz",   "GMT-06:00"},
    {"EST.tz",   "GMT-05:00"},
    {"AST.tz",   "GMT-04:00"},
    {"NST.tz",   "GMT-03:30"},
    {"BRT.tz",   "GMT-03:00"},
    {"FNT.tz",   "GMT-02:00"},
    {"AZOT.tz",  "GMT-01:00"},
    {"GMT.tz",   "GMT+00:00"},
    {"CET.tz",   "GMT+01:00"},
    {"EET.tz",   "GMT+02:00"},
    {"AST+.tz",  "GMT+03:00"},
    {"IRT.tz",   "GMT+03:30"},
    {"GST.tz",   "GMT+04:00"},
    {"AFT.tz",   "GMT+04:30"},
    {"YEKT.tz",  "GMT+05:00"},
    {"IST.tz",   "GMT+05:30"},
    {"ALMT.tz",  "GMT+06:00"},
    {"MMT.tz",   "GMT+06:30"},
    {"ICT.tz",   "GMT+07:00"},
    {"CST+.tz",  "GMT+08:00"},
    {"JST.tz",   "GMT+09:00"},
    {"CSAT.tz",  "GMT+09:30"},
    {"EST+.tz",  "GMT+10:00"},
    {"MAGT.tz",  "GMT+11:00"},
    {"NZST.tz",  "GMT+12:00"},
    {"TOT.tz",   "GMT+13:00"},
});
// Seconds east of UTC, in the same order.
inline constexpr auto tzTimeOffset = std::to_array<std::int32_t>({
    -43200, -39600, -36000, -32400, -28800, -25200, -21600, -18000,
    -14400, -12600, -10800,  -7200,  -3600,      0,   3600,   7200,
     10800,  12600,  14400,  16200,  18000,  19800,  21600,  23400,
     25200,  28800,  32400,  34200,  36000,  39600,  43200,  46800,
});
// clang-format on
inline constexpr int kZoneGmt = 13;  // what an index that is not set stands for
static_assert(tzFileName.size() == 32 && tzTimeOffset.size() == tzFileName.size() && tzTimeOffset[kZoneGmt] == 0);
