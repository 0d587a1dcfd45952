#include "login/access_file.h"

#include <algorithm>

namespace {
constexpr std::string_view kBlanks = " \t\r\v\f", kDevices = "/dev/";

// Takes the part before the first of `separators` off the front of `rest`, and the separator with it.
std::string_view take(std::string_view& rest, std::string_view separators)
{
    const std::size_t end = std::min(rest.find_first_of(separators), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

// The next word of a line; empty at its end.
std::string_view take_word(std::string_view& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    return take(line, kBlanks);
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool same_host(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return lower(x) == lower(y); });
}

bool word_allows(std::string_view word, std::string_view tty, std::string_view host)
{
    if (word.starts_with('@')) return !host.empty() && same_host(word.substr(1), host);
    if (word.starts_with(kDevices)) word.remove_prefix(kDevices.size());
    return word == tty;
}
}  // namespace

bool terminal_allowed(std::string_view text, std::string_view user, std::string_view tty, std::string_view host)
{
    bool named = false;
    while (!text.empty()) {
        std::string_view line = take(text, "\n");
        line = take(line, "#");
        const std::string_view who = take_word(line);
        if (who.empty() || (who != user && who != "*")) continue;

        named = true;
        for (std::string_view word; !(word = take_word(line)).empty();)
            if (word_allows(word, tty, host)) return true;
    }
    return !named;
}
