// What the tables have in common whose entries belong to an interface and travel at the front of a request's payload.
#pragma once

#include <string>

#include "configd/service.h"
#include "configd/settings.h"
#include "service/fields/carried_entry.h"

// 1 to 15 characters that need no quoting in a rule for the kernel.
bool is_interface_name(const char* text);

// One of the interface table.
bool is_visible_interface(const Service& service, const std::string& name);

constexpr Column carried(Setting setting, std::uint8_t identity = Column::kNone)
{
    return {setting, {record::kPayload + setting.at.offset, setting.at.width}, identity};
}

// The text of a field whose bytes may not be changed.
template <class TextField> std::string text_of(const TextField& field, const unsigned char* bytes)
{
    return {reinterpret_cast<const char*>(bytes) + field.at.offset, field.length(bytes)};
}
