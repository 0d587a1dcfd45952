#include "configd/old_formats.h"

#include <cstddef>
#include <iterator>

#include "configd/configuration.h"

namespace {
// Format 0 had each side's address as an object of its own.
void from_0(json_t* root)
{
    json_t* addresses = json_object_get(root, "addresses");
    if (!addresses) {
        addresses = json_object();
        json_object_set_new(root, "addresses", addresses);
    }
    for (const char* side : {"lan", "wan"}) {
        json_t* values = json_object_get(root, side);
        if (values && json_object_set(addresses, side, values) == 0) json_object_del(root, side);
    }
}

constexpr void (*kSteps[])(json_t*) = {from_0};  // each from the format of its index to the next
static_assert(std::size(kSteps) == Configuration::kFormat);
}  // namespace

void bring_up(json_t* root, int from, int to)
{
    for (int format = from; format < to; format++) kSteps[static_cast<std::size_t>(format)](root);
}
