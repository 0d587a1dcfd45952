#include "configd/areas/interface_entries.h"

#include <algorithm>
#include <string_view>

#include "configd/areas/interfaces.h"

namespace {
constexpr bool is_plain(char c)
{
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-' || c == '@';
}
}  // namespace

bool is_interface_name(const char* text)
{
    const std::string_view name = text;
    return !name.empty() && name.size() < device::kInterfaceNameSize && std::ranges::all_of(name, is_plain);
}

bool is_visible_interface(const Service& service, const std::string& name)
{
    const std::vector<std::string> names = interface_names(service);
    return std::ranges::find(names, name) != names.end();
}
