// Records and table entries written as what they hold, fields and values in turn:
//
//     row_of<dmz_entry::kSize>(dmz_entry::name, "cam", dmz_entry::interface, "eth1")
#pragma once

#include <string>
#include <type_traits>

#include "service/record.h"

template <class Bytes> void fill(Bytes&) {}
template <class Bytes, class Field, class Value, class... Rest>
void fill(Bytes& bytes, const Field& field, const Value& value, const Rest&... rest)
{
    using Kept = decltype(field.get(bytes));
    if constexpr (std::is_arithmetic_v<Kept>)
        field.set(bytes, static_cast<Kept>(value));
    else
        field.set(bytes, value);
    fill(bytes, rest...);
}

template <class... Fields> ComParam request_of(std::uint16_t code, const Fields&... fields)
{
    ComParam request{};
    fill(request, record::kind, record::kRequest, record::code, code, fields...);
    return request;
}

template <std::size_t Size, class... Fields> std::string row_of(const Fields&... fields)
{
    std::string row(Size, '\0');
    auto* bytes = reinterpret_cast<unsigned char*>(row.data());
    fill(bytes, fields...);
    return row;
}
