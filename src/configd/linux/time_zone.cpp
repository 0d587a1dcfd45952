#include "configd/linux/time_zone.h"

#include <cstdio>
#include <cstdlib>

#include "configd/linux/text_file.h"

namespace device {
namespace {
void append_number(std::string& file, std::uint32_t number)
{
    for (int shift = 24; shift >= 0; shift -= 8) file += static_cast<char>(number >> shift);
}

// "GMT", or hours and minutes as in "+0530".
std::string zone_abbreviation(std::int32_t secondsEast)
{
    if (secondsEast == 0) return "GMT";
    const int minutes = std::abs(secondsEast) / 60;
    char text[16];
    std::snprintf(text, sizeof text, "%c%02d%02d", secondsEast < 0 ? '-' : '+', minutes / 60, minutes % 60);
    return text;
}

// RFC 8536, version 1: no transition, one kind of local time and its name.
std::string zone_file(std::int32_t secondsEast)
{
    const std::string name = zone_abbreviation(secondsEast);
    std::string file = "TZif";
    file.append(16, '\0');  // version and unused
    const auto nameLength = static_cast<std::uint32_t>(name.size() + 1);
    // Marks of UT and of standard time, leap seconds, transitions, kinds of local time, characters of names.
    for (const std::uint32_t count : {0u, 0u, 0u, 0u, 1u, nameLength}) append_number(file, count);
    append_number(file, static_cast<std::uint32_t>(secondsEast));
    file.append(2, '\0');  // no summer time; the name begins at 0
    file.append(name.c_str(), nameLength);
    return file;
}
}  // namespace

int set_time_zone(const char* path, std::int32_t secondsEast)
{
    const std::string wanted = zone_file(secondsEast);
    std::string present;
    if (read_text_file(path, wanted.size() + 1, present) == 0 && present == wanted) return 0;
    return replace_file(path, wanted);
}
}  // namespace device
