// What a setting is: one row tells its place in the record, its name in the stored file, what it takes and its factory
// value. Answering a read, checking a write, storing, restoring and resetting all walk such rows. Values live in an
// image: bytes laid out like the record (or like the entry of a table), so that a row's place serves for both.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

#include "service/fields/origin.h"
#include "service/record.h"
#include "service/status.h"

using Bytes = std::vector<unsigned char>;

enum class Kind : std::uint8_t { kText, kSecret, kNumber, kFlag, kChoice, kAddress, kMac, kKey };

struct Choice {
    std::uint32_t value;
    const char* word;
};

struct Setting {
    const char* key;
    Kind kind;
    Extent at;
    std::int64_t min = 0, max = 0;  // a number's range, a text's length
    bool isSigned = false;
    bool emptyKeeps = false;               // an empty text in a write leaves the setting as it is
    bool alwaysMeant = false;              // a write sets it even to what its sender knew it to be
    std::span<const Choice> choices = {};  // of a choice
    bool (*takesText)(const char*) = nullptr;
    bool (*takesNumber)(std::int64_t) = nullptr;
    std::int64_t factoryNumber = 0;
    const char* factoryText = "";
};

// How rows are written.
namespace row {
struct TextRules {
    const char* factory = "";
    std::int64_t min = 0;
    bool emptyKeeps = false;
    bool (*takes)(const char*) = nullptr;
};
struct NumberRules {
    std::int64_t min, max, factory;
};

template <class T> constexpr Setting text(const char* key, T field, TextRules rules = {})
{
    return {.key = key,
            .kind = Kind::kText,
            .at = field.at,
            .min = rules.min,
            .max = static_cast<std::int64_t>(field.at.width) - 1,
            .emptyKeeps = rules.emptyKeeps,
            .takesText = rules.takes,
            .factoryText = rules.factory};
}

// A text that no log shows.
template <class T> constexpr Setting secret(const char* key, T field, TextRules rules = {})
{
    Setting setting = text(key, field, rules);
    setting.kind = Kind::kSecret;
    return setting;
}

template <class T> constexpr Setting number(const char* key, T field, NumberRules rules)
{
    using Value = decltype(field.get(nullptr));
    return {.key = key,
            .kind = Kind::kNumber,
            .at = field.at,
            .min = rules.min,
            .max = rules.max,
            .isSigned = std::is_signed_v<Value>,
            .factoryNumber = rules.factory};
}

template <class T> constexpr Setting flag(const char* key, T field, bool factory)
{
    return {.key = key, .kind = Kind::kFlag, .at = field.at, .max = 1, .factoryNumber = factory};
}

template <class T>
constexpr Setting choice(const char* key, T field, std::span<const Choice> choices, std::uint32_t factory)
{
    return {.key = key, .kind = Kind::kChoice, .at = field.at, .choices = choices, .factoryNumber = factory};
}

// A setting that no record shows, or that is written in a record that was not read for it.
constexpr Setting meant(Setting setting)
{
    setting.alwaysMeant = true;
    return setting;
}

// Host order in the record, a dotted quad in the file.
template <class T>
constexpr Setting address(const char* key, T field, std::uint32_t factory, bool (*takes)(std::int64_t) = nullptr)
{
    return {.key = key,
            .kind = Kind::kAddress,
            .at = field.at,
            .max = 0xFFFFFFFF,
            .takesNumber = takes,
            .factoryNumber = factory};
}

template <class T> constexpr Setting mac(const char* key, T field)
{
    return {.key = key, .kind = Kind::kMac, .at = field.at};
}

// Any bytes, zeros among them; hexadecimal in the file. Secret, as a key is: no log shows them.
template <class T> constexpr Setting key_bytes(const char* key, T field)
{
    return {.key = key, .kind = Kind::kKey, .at = field.at};
}
}  // namespace row

constexpr bool is_text(const Setting& row) { return row.kind == Kind::kText || row.kind == Kind::kSecret; }
constexpr bool is_number(const Setting& row)
{
    return !is_text(row) && row.kind != Kind::kMac && row.kind != Kind::kKey;
}

// A number within what the row takes, whatever its kind.
bool takes_number(const Setting& row, std::int64_t value);

// In the functions below `value` is where the field itself begins.
bool takes(const Setting& row, const unsigned char* value);
bool same_value(const Setting& row, const unsigned char* a, const unsigned char* b);
std::int64_t get_number(const Setting& row, const unsigned char* value);
void set_number(const Setting& row, unsigned char* value, std::int64_t number);
// The text up to its NUL; never more than the width.
std::string_view get_text(const Setting& row, const unsigned char* value);
void set_text(const Setting& row, unsigned char* value, std::string_view text);  // what it takes: not cut here
void set_factory(const Setting& row, unsigned char* value);
// Behind a text's NUL nothing of the source is copied: what stood there is none of the setting's business.
void copy_value(const Setting& row, const unsigned char* from, unsigned char* to);

// Settings that one record carries, an object of the stored file. Sections that differ only in whose settings they are
// (the LAN and the WAN address) share a key and have a name: the request says which one it means.
struct Section {
    const char* key;
    const char* name;  // "": the only one of its key
    std::span<const Setting> settings;
    ServiceStatus (*check)(const unsigned char* image) = nullptr;  // what only several values together can break

    std::size_t room() const;  // bytes of its image
};

// A value that tells an entry of a list from the others; its columns all carry its number.
struct Identity {
    ServiceStatus duplicate;
    ServiceStatus unknown;
};

struct Column {
    Setting setting;                // its place is in the entry
    Extent inRequest;               // where the request that adds or deletes an entry carries it
    std::uint8_t identity = kNone;  // index into the list's identities

    static constexpr std::uint8_t kNone = 0xFF;
};

// A table of entries, an array of the stored file.
struct List {
    const char* key;
    std::span<const Column> columns;
    std::span<const Identity> identities;  // the first one is what a request deletes by
    std::size_t entrySize;
    std::size_t capacity;
    ServiceStatus (*check)(const unsigned char* entry) = nullptr;  // what only several values together can break
};

// Everything that is stored, in the order of the file.
struct Model {
    std::vector<const Section*> sections;
    std::vector<const List*> lists;
};

void set_factory(const Section& section, Bytes& image);

// Copies the values of `rows` (the section's, or some of them) from the record to the image when it takes them all;
// else the image stays as it was. `known` is the image as the record's sender knows it, if anybody can tell: what the
// record shows as it is there its sender has not changed, and the image keeps what it has by now.
ServiceStatus take_values(const Section& section, std::span<const Setting> rows, const ComParam& record, Bytes& image,
                          const std::optional<Bytes>& known = {});

// Copies the section's values to the record.
void give_values(const Section& section, const Bytes& image, ComParam& record);

// Checks of rows while compiling.
void setting_is_not_sound();  // never defined; naming it in a constant expression is the error

constexpr bool overlap(Extent a, Extent b) { return a.offset < b.end() && b.offset < a.end(); }

constexpr bool factory_is_taken(const Setting& row)
{
    if (row.kind == Kind::kChoice) {
        for (const Choice& each : row.choices) {
            if (each.value == row.factoryNumber) return true;
        }
        return false;
    }
    if (is_number(row)) return row.factoryNumber >= row.min && row.factoryNumber <= row.max;
    const auto length = static_cast<std::int64_t>(std::string_view(row.factoryText).size());
    return !is_text(row) || (length >= row.min && length <= row.max);
}

constexpr bool width_is_known(const Setting& row)
{
    return !is_number(row) || row.at.width == 1 || row.at.width == 2 || row.at.width == 4;
}

template <std::size_t N>
consteval Section section(const char* key, const char* name, const std::array<Setting, N>& rows,
                          ServiceStatus (*check)(const unsigned char*) = nullptr)
{
    for (std::size_t i = 0; i < N; i++) {
        if (!factory_is_taken(rows[i]) || !width_is_known(rows[i])) setting_is_not_sound();
        if (overlap(rows[i].at, origin_record::place)) setting_is_not_sound();
        for (std::size_t j = 0; j < i; j++) {
            if (overlap(rows[i].at, rows[j].at)) setting_is_not_sound();
            if (std::string_view(rows[i].key) == rows[j].key) setting_is_not_sound();
        }
    }
    return {key, name, rows, check};
}
