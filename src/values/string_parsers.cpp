#include <cstddef>
#include <cstring>

#include "console/messages.h"
#include "values/parsers.h"

namespace {
void append_text(ParmList& words, char* text) { append_word(words, reinterpret_cast<Word>(text)); }

// What stands between the quotes, or the whole text when it begins with none; null when it is badly quoted.
const char* end_of_string(const char* begin, bool quoted)
{
    if (!quoted) return begin + std::strlen(begin);
    const char* quote = std::strchr(begin, '"');
    return quote && quote[1] == 0 ? quote : nullptr;
}

std::uint32_t parse_string(char* text, ParmList& words, int limit)
{
    const bool quoted = *text == '"';
    const char* begin = quoted ? text + 1 : text;
    const char* end = end_of_string(begin, quoted);
    if (!end || end == begin || end - begin > limit) {
        // Whoever prints the refusal does not know which parser it came from: the limit goes with the message itself.
        PatchMsg(2, kStringRule, limit);
        return kStringRule;
    }
    const auto length = static_cast<std::size_t>(end - begin);
    std::memmove(text, begin, length);
    text[length] = 0;
    append_text(words, text);
    return kOk;
}
}  // namespace

// clang-format off
std::uint32_t CliParseString15       (char* t, ParmList& w) { return parse_string(t, w, 15); }
std::uint32_t CliParseString30       (char* t, ParmList& w) { return parse_string(t, w, 30); }
std::uint32_t CliParseString60       (char* t, ParmList& w) { return parse_string(t, w, 60); }
std::uint32_t CliParseString63       (char* t, ParmList& w) { return parse_string(t, w, 63); }
std::uint32_t CliParsePrompt         (char* t, ParmList& w) { return CliParseString15(t, w); }
std::uint32_t CliParsePortName       (char* t, ParmList& w) { return CliParseString15(t, w); }
std::uint32_t CliParseInterfaceName  (char* t, ParmList& w) { return CliParseString15(t, w); }
std::uint32_t CliParseProfileName    (char* t, ParmList& w) { return CliParseString15(t, w); }
std::uint32_t CliParseName30         (char* t, ParmList& w) { return CliParseString30(t, w); }
std::uint32_t CliParseGatewayOrIfName(char* t, ParmList& w) { return CliParseString30(t, w); }
std::uint32_t CliParseName60         (char* t, ParmList& w) { return CliParseString60(t, w); }
std::uint32_t CliParseLocationInfo   (char* t, ParmList& w) { return CliParseString60(t, w); }
// clang-format on

std::uint32_t CliParseFacility(char* text, ParmList& words)
{
    append_text(words, text);
    return kOk;
}

std::uint32_t CliParseMacEapOrBoth(char* text, ParmList& words)
{
    for (const char* choice : {"mac", "eap", "bath"}) {  // "bath", though the message says "both"
        if (std::strcmp(text, choice) != 0) continue;
        append_text(words, text);
        return kOk;
    }
    return kMacEapOrBoth;
}
