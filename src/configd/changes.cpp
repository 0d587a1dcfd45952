#include "configd/changes.h"

#include <cstdlib>
#include <memory>

namespace {
constexpr std::size_t kLongestValue = 32;  // two of them and what they are of fit into an entry of the system log

using Lines = std::vector<std::string>;

bool is_withheld(const Setting& row) { return row.kind == Kind::kSecret || row.kind == Kind::kKey; }

// Quoted and escaped, so that no value can pass for another line or for what stands around it.
std::string shown(const Setting& row, const unsigned char* value)
{
    const Json json(value_to_json(row, value));
    if (!json) return "?";
    const std::unique_ptr<char, void (*)(void*)> dump(json_dumps(json.get(), JSON_ENCODE_ANY | JSON_ENSURE_ASCII),
                                                      std::free);
    std::string text = dump ? dump.get() : "?";
    if (text.size() <= kLongestValue) return text;
    constexpr std::string_view kCut = "...\"";
    return text.substr(0, kLongestValue - kCut.size()).append(kCut);
}

void append_change(const std::string& of, const Setting& row, const Bytes& before, const Bytes& after, Lines& lines)
{
    const unsigned char *old = before.data() + row.at.offset, *now = after.data() + row.at.offset;
    if (same_value(row, old, now)) return;
    std::string line = of + row.key + " changed";
    if (!is_withheld(row)) line += " from " + shown(row, old) + " to " + shown(row, now);
    lines.push_back(std::move(line));
}

void append_changes(const Section& section, const Bytes& before, const Bytes& after, Lines& lines)
{
    if (before == after) return;
    for (const Setting& row : section.settings) append_change(place_of(section) + ".", row, before, after, lines);
}

constexpr std::uint8_t kName = 0;  // the identity that an entry is called by

std::string name_of(const List& list, const Bytes& entry)
{
    std::string name = list.key;
    for (const Column& column : list.columns)
        if (column.identity == kName) name += " " + shown(column.setting, entry.data() + column.setting.at.offset);
    return name;
}

// With the values that its name does not tell.
std::string whole_entry(const List& list, const Bytes& entry, const char* became)
{
    std::string line = name_of(list, entry) + " " + became;
    const char* separator = ": ";
    for (const Column& column : list.columns) {
        const Setting& row = column.setting;
        if (column.identity == kName || is_withheld(row)) continue;
        line += separator + std::string(row.key) + " " + shown(row, entry.data() + row.at.offset);
        separator = ", ";
    }
    return line;
}

void append_changes(const List& list, const std::vector<Entry>& before, const std::vector<Entry>& after, Lines& lines)
{
    for (const Entry& old : before) {
        const std::size_t found = find_entry(list, after, kName, old.bytes);
        if (found == after.size()) {
            lines.push_back(whole_entry(list, old.bytes, "deleted"));
            continue;
        }
        for (const Column& column : list.columns)
            append_change(name_of(list, old.bytes) + " ", column.setting, old.bytes, after[found].bytes, lines);
    }
    for (const Entry& entry : after)
        if (find_entry(list, before, kName, entry.bytes) == before.size())
            lines.push_back(whole_entry(list, entry.bytes, "added"));
}
}  // namespace

Lines changes_between(const Model& model, const Configuration& before, const Configuration& after)
{
    Lines lines;
    for (const Section* section : model.sections)
        append_changes(*section, before.values(*section), after.values(*section), lines);
    for (const List* list : model.lists) append_changes(*list, before.entries(*list), after.entries(*list), lines);
    return lines;
}
