// The terminal-access file: the first line has the user, the terminal and the host, the rest is the file.
#include "login/access_file.h"

#include <algorithm>

#include "fuzz/fuzzing.h"

namespace {
std::string_view take(std::string_view& rest, char separator)
{
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string_view who = take(text, '\n');
    const std::string_view user = take(who, ' '), tty = take(who, ' ');
    const bool allowed = terminal_allowed(text, user, tty, who);

    // A file in which nobody stands shuts nobody out.
    if (text.find_first_not_of(" \t\r\v\f\n") == text.npos) holds(allowed, "shut out by an empty file");
    return 0;
}
