#include "configd/system_log.h"

#include <algorithm>
#include <ctime>
#include <syslog.h>
#include <utility>

namespace {
// One line, whatever a text has been made of.
std::string one_line(std::string_view text)
{
    constexpr std::string_view kCut = "...";
    std::string line(text.substr(0, SystemLog::kLongestText));
    if (text.size() > line.size()) line.replace(line.size() - kCut.size(), kCut.size(), kCut);
    std::ranges::replace_if(
        line, [](char c) { return c < ' ' || c > '~'; }, '?');
    return line;
}
}  // namespace

LogRules::LogRules()
{
    logUpTo.fill(LOG_INFO);
    traceUpTo.fill(0);
}

void SystemLog::attribute_lines_to(Facility facility, std::string asker)
{
    lines_ = facility;
    asker_ = std::move(asker);
}

void SystemLog::log(Facility facility, int level, std::string_view text)
{
    if (level <= rules_.logUpTo[static_cast<std::size_t>(facility)]) keep(facility, level, text);
}

void SystemLog::trace(Facility facility, int level, std::string_view text)
{
    if (traces(facility, level)) keep(facility, level, text);
}

void SystemLog::keep(Facility facility, int level, std::string_view text)
{
    if (entries_.size() == kCapacity) entries_.pop_front();
    entries_.push_back({std::time(nullptr), facility, level, one_line(text)});
    const LogEntry& entry = entries_.back();
    send_to(rules_.remote, {entry.time, entry.level, kFacilityNames[static_cast<std::size_t>(facility)], entry.text});
}

SystemLog& system_log()
{
    static SystemLog log;
    return log;
}
