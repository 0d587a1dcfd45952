#include "configd/settings.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr bool is_printable(char c) { return c >= ' ' && c <= '~'; }

template <class T> std::int64_t load(const unsigned char* value)
{
    T number;
    std::memcpy(&number, value, sizeof number);
    return number;
}

template <class T> void store(unsigned char* value, std::int64_t number)
{
    const auto cut = static_cast<T>(number);
    std::memcpy(value, &cut, sizeof cut);
}

bool takes_text(const Setting& row, const unsigned char* value)
{
    const std::string_view text = get_text(row, value);
    const auto length = static_cast<std::int64_t>(text.size());
    if (length < row.min || length > row.max) return false;  // max leaves room for the NUL
    if (!std::ranges::all_of(text, is_printable)) return false;
    return !row.takesText || row.takesText(reinterpret_cast<const char*>(value));
}
}  // namespace

bool takes_number(const Setting& row, std::int64_t value)
{
    if (row.kind == Kind::kChoice) return std::ranges::find(row.choices, value, &Choice::value) != row.choices.end();
    if (value < row.min || value > row.max) return false;
    return !row.takesNumber || row.takesNumber(value);
}

bool takes(const Setting& row, const unsigned char* value)
{
    if (is_text(row)) return takes_text(row, value);
    if (is_number(row)) return takes_number(row, get_number(row, value));
    return true;
}

bool same_value(const Setting& row, const unsigned char* a, const unsigned char* b)
{
    return is_text(row) ? get_text(row, a) == get_text(row, b) : std::memcmp(a, b, row.at.width) == 0;
}

std::int64_t get_number(const Setting& row, const unsigned char* value)
{
    switch (row.at.width) {
    case 1: return row.isSigned ? load<std::int8_t>(value) : load<std::uint8_t>(value);
    case 2: return row.isSigned ? load<std::int16_t>(value) : load<std::uint16_t>(value);
    default: return row.isSigned ? load<std::int32_t>(value) : load<std::uint32_t>(value);
    }
}

void set_number(const Setting& row, unsigned char* value, std::int64_t number)
{
    switch (row.at.width) {
    case 1: return store<std::uint8_t>(value, number);
    case 2: return store<std::uint16_t>(value, number);
    default: return store<std::uint32_t>(value, number);
    }
}

std::string_view get_text(const Setting& row, const unsigned char* value)
{
    const auto* text = reinterpret_cast<const char*>(value);
    return {text, strnlen(text, row.at.width)};
}

void set_text(const Setting& row, unsigned char* value, std::string_view text)
{
    const std::size_t used = std::min(text.size(), row.at.width - 1);
    std::memcpy(value, text.data(), used);
    std::memset(value + used, 0, row.at.width - used);
}

void set_factory(const Setting& row, unsigned char* value)
{
    if (is_text(row)) return set_text(row, value, row.factoryText);
    if (is_number(row)) return set_number(row, value, row.factoryNumber);
    std::memset(value, 0, row.at.width);
}

void copy_value(const Setting& row, const unsigned char* from, unsigned char* to)
{
    if (is_text(row)) return set_text(row, to, get_text(row, from));
    std::memcpy(to, from, row.at.width);
}

std::size_t Section::room() const
{
    std::size_t end = 0;
    for (const Setting& row : settings) end = std::max(end, row.at.end());
    return end;
}

void set_factory(const Section& section, Bytes& image)
{
    image.assign(section.room(), 0);
    for (const Setting& row : section.settings) set_factory(row, image.data() + row.at.offset);
}

ServiceStatus take_values(const Section& section, std::span<const Setting> rows, const ComParam& record, Bytes& image,
                          const std::optional<Bytes>& known)
{
    Bytes next = image;
    for (const Setting& row : rows) {
        const unsigned char* value = record.bytes + row.at.offset;
        if (known && !row.alwaysMeant && same_value(row, value, known->data() + row.at.offset)) continue;
        if (row.emptyKeeps && is_text(row) && *value == 0) continue;
        if (!takes(row, value)) return kStatusValueRefused;
        copy_value(row, value, next.data() + row.at.offset);
    }
    if (section.check) {
        if (const ServiceStatus refused = section.check(next.data())) return refused;
    }
    image.swap(next);
    return kStatusOk;
}

void give_values(const Section& section, const Bytes& image, ComParam& record)
{
    for (const Setting& row : section.settings)
        copy_value(row, image.data() + row.at.offset, record.bytes + row.at.offset);
}
