// Dates and times as broken-down fields.
#pragma once

#include <cstdint>
#include <ctime>

// Whether the month of that two-digit year has that day. Every fourth year is a leap year, 00 too: the exception of the
// centuries lies outside 0 to 99.
bool IsCorrectDateFmt(std::uint32_t month, std::uint32_t day, std::uint32_t year);

// "year/month/day" and "hours:minutes:seconds", each field at most four characters, into the broken-down time; weekday,
// day of the year and daylight flag 0. Returns 0; or 1 for a null text, a missing separator or a field too long, the
// time left as it was. What the numbers say is not tested.
int maketm(const char* date, const char* time, std::tm* out);
