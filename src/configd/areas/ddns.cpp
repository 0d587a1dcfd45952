// Dynamic DNS.
#include "service/fields/ddns.h"

#include <algorithm>
#include <string_view>

#include "configd/areas/areas.h"
#include "service/codes.h"

namespace {
using namespace ddns_record;

bool is_name_character(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool is_hostname(const char* text) { return std::ranges::all_of(std::string_view(text), is_name_character); }

// Without a name and a user there is nothing to keep up to date.
ServiceStatus check(const unsigned char* image)
{
    const bool complete = hostname.length(image) > 0 && username.length(image) > 0;
    return enabled.get(image) && !complete ? kStatusNotSet : kStatusOk;
}

// clang-format off
constexpr auto kRows = std::to_array<Setting>({
    row::flag  ("enabled",  enabled,  false),
    row::text  ("hostname", hostname, {.takes = is_hostname}),
    row::text  ("username", username),
    row::meant (row::secret("password", password, {.emptyKeeps = true})),
});
constexpr Section kSections[] = {section("ddns", "", kRows, check)};
// clang-format on

ServiceStatus read_ddns(Call& call)
{
    if (const ServiceStatus refused = read_section(call)) return refused;
    ComParam& answer = call.answer.record;
    passwordSet.set(answer, password.length(answer) > 0);
    password.clear(answer);
    return kStatusOk;
}

ServiceStatus write_ddns(Call& call)
{
    if (const ServiceStatus refused = write_rows(call, kSections[0], kRows)) return refused;
    return read_ddns(call);
}

// clang-format off
constexpr Operation kOperations[] = {
    {.code = code::kReadDdns,  .run = read_ddns,  .sections = kSections},
    {.code = code::kWriteDdns, .run = write_ddns, .sections = kSections},
};
// clang-format on
}  // namespace

const Area kDdnsArea{.sections = kSections, .lists = {}, .operations = kOperations};
