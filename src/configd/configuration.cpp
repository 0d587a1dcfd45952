#include "configd/configuration.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "configd/old_formats.h"

namespace {
constexpr const char* kFormatKey = "format";

std::size_t index_in(const auto& all, const auto& one)
{
    return static_cast<std::size_t>(std::ranges::find(all, &one) - all.begin());
}

// The object or array at `key`, made when there is none.
json_t* member(json_t* object, const char* key, json_t* (*make)())
{
    json_t* found = json_object_get(object, key);
    if (!found) {
        found = make();
        json_object_set_new(object, key, found);
    }
    return found;
}

json_t* section_object(json_t* root, const Section& section)
{
    json_t* object = member(root, section.key, json_object);
    return *section.name ? member(object, section.name, json_object) : object;
}

void delete_if_empty(json_t* object, const char* key)
{
    const json_t* value = json_object_get(object, key);
    if (json_is_object(value) && json_object_size(value) == 0) json_object_del(object, key);
}

bool refuse(std::string& why, std::string reason)
{
    why = std::move(reason);
    return false;
}

json_t* list_to_json(const List& list, const std::vector<Entry>& entries)
{
    json_t* array = json_array();
    for (const Entry& entry : entries) {
        json_t* object = json_object();
        for (const Column& column : list.columns) {
            const Setting& row = column.setting;
            json_object_set_new(object, row.key, value_to_json(row, entry.bytes.data() + row.at.offset));
        }
        if (entry.extra) json_object_update_missing(object, entry.extra.get());
        json_array_append_new(array, object);
    }
    return array;
}

// The readers take what they know out of the object, so that what is left is what they do not know.

bool read_rows(json_t* object, const Section& section, Bytes& image, std::string& why)
{
    for (const Setting& row : section.settings) {
        const json_t* value = json_object_get(object, row.key);
        if (!value) continue;
        if (!value_from_json(row, value, image.data() + row.at.offset))
            return refuse(why, place_of(section) + "." + row.key + " has a value that it does not take");
        json_object_del(object, row.key);
    }
    if (section.check && section.check(image.data()) != kStatusOk)
        return refuse(why, "the values of " + place_of(section) + " do not go together");
    return true;
}

bool read_section(json_t* root, const Section& section, Bytes& image, std::string& why)
{
    json_t* object = json_object_get(root, section.key);
    if (!object) return true;
    if (!json_is_object(object)) return refuse(why, std::string(section.key) + " is no object");
    if (!*section.name) return read_rows(object, section, image, why);

    json_t* named = json_object_get(object, section.name);
    if (!named) return true;
    if (!json_is_object(named)) return refuse(why, place_of(section) + " is no object");
    if (!read_rows(named, section, image, why)) return false;
    delete_if_empty(object, section.name);
    return true;
}

bool read_entry(json_t* object, const List& list, Entry& entry)
{
    if (!json_is_object(object)) return false;
    entry.bytes.assign(list.entrySize, 0);
    for (const Column& column : list.columns) {
        const Setting& row = column.setting;
        unsigned char* value = entry.bytes.data() + row.at.offset;
        set_factory(row, value);
        const json_t* given = json_object_get(object, row.key);
        if (given ? !value_from_json(row, given, value) : !takes(row, value)) return false;
        json_object_del(object, row.key);
    }
    if (json_object_size(object) > 0) entry.extra = Json(json_incref(object));
    return true;
}

bool read_list(json_t* root, const List& list, std::vector<Entry>& entries, std::string& why)
{
    json_t* array = json_object_get(root, list.key);
    if (!array) return true;
    if (!json_is_array(array)) return refuse(why, std::string(list.key) + " is no array");
    for (std::size_t i = 0; i < json_array_size(array); i++) {
        Entry entry;
        if (!read_entry(json_array_get(array, i), list, entry) ||
            add_entry(list, entries, std::move(entry)) != kStatusOk)
            return refuse(why, std::string(list.key) + " has an entry that it does not take: number " +
                                   std::to_string(i + 1));
    }
    json_object_del(root, list.key);
    return true;
}

bool read_format(json_t* root, std::string& why)
{
    if (!json_is_object(root)) return refuse(why, "no object");
    const json_t* format = json_object_get(root, kFormatKey);
    if (!json_is_integer(format)) return refuse(why, "no format number");
    const json_int_t number = json_integer_value(format);
    if (number < 0 || number > Configuration::kFormat)
        return refuse(why, "format " + std::to_string(number) + ", this program knows formats up to " +
                               std::to_string(Configuration::kFormat));
    bring_up(root, static_cast<int>(number), Configuration::kFormat);
    json_object_del(root, kFormatKey);
    return true;
}
}  // namespace

Configuration::Configuration(const Model& model)
    : model_(&model), sections_(model.sections.size()), lists_(model.lists.size())
{
    for (std::size_t i = 0; i < sections_.size(); i++) set_factory(*model.sections[i], sections_[i]);
}

const Bytes& Configuration::values(const Section& section) const
{
    return sections_[index_in(model_->sections, section)];
}
Bytes& Configuration::values(const Section& section) { return sections_[index_in(model_->sections, section)]; }
const std::vector<Entry>& Configuration::entries(const List& list) const
{
    return lists_[index_in(model_->lists, list)];
}
std::vector<Entry>& Configuration::entries(const List& list) { return lists_[index_in(model_->lists, list)]; }

std::string Configuration::text() const
{
    const Json root(json_object());
    json_object_set_new(root.get(), kFormatKey, json_integer(kFormat));
    for (std::size_t i = 0; i < sections_.size(); i++) {
        const Section& section = *model_->sections[i];
        json_t* object = section_object(root.get(), section);
        for (const Setting& row : section.settings)
            json_object_set_new(object, row.key, value_to_json(row, sections_[i].data() + row.at.offset));
    }
    for (std::size_t i = 0; i < lists_.size(); i++)
        json_object_set_new(root.get(), model_->lists[i]->key, list_to_json(*model_->lists[i], lists_[i]));
    if (extra_) json_object_update_recursive(root.get(), extra_.get());

    const std::unique_ptr<char, void (*)(void*)> dump(json_dumps(root.get(), JSON_INDENT(2)), std::free);
    return dump ? std::string(dump.get()) + "\n" : std::string();
}

bool Configuration::parse(std::string_view text, std::string& why)
{
    json_error_t error;
    const Json root(json_loadb(text.data(), text.size(), JSON_REJECT_DUPLICATES, &error));
    // The library's own words quote the text around the fault, which may be a secret.
    if (!root) return refuse(why, "line " + std::to_string(error.line) + " is no JSON");
    if (!read_format(root.get(), why)) return false;

    Configuration read(*model_);
    for (std::size_t i = 0; i < sections_.size(); i++) {
        if (!read_section(root.get(), *model_->sections[i], read.sections_[i], why)) return false;
    }
    for (std::size_t i = 0; i < lists_.size(); i++) {
        if (!read_list(root.get(), *model_->lists[i], read.lists_[i], why)) return false;
    }
    for (const Section* section : model_->sections) delete_if_empty(root.get(), section->key);
    if (json_object_size(root.get()) > 0) read.extra_ = root;
    *this = std::move(read);
    return true;
}

std::string place_of(const Section& section)
{
    return *section.name ? std::string(section.key) + "." + section.name : section.key;
}

std::size_t find_entry(const List& list, const std::vector<Entry>& entries, std::uint8_t identity, const Bytes& bytes)
{
    const auto same = [&](const Entry& entry) {
        return std::ranges::all_of(list.columns, [&](const Column& column) {
            const Extent at = column.setting.at;
            return column.identity != identity ||
                   std::memcmp(entry.bytes.data() + at.offset, bytes.data() + at.offset, at.width) == 0;
        });
    };
    return static_cast<std::size_t>(std::ranges::find_if(entries, same) - entries.begin());
}

ServiceStatus add_entry(const List& list, std::vector<Entry>& entries, Entry entry)
{
    if (list.check) {
        if (const ServiceStatus refused = list.check(entry.bytes.data())) return refused;
    }
    for (std::uint8_t i = 0; i < list.identities.size(); i++) {
        if (find_entry(list, entries, i, entry.bytes) != entries.size()) return list.identities[i].duplicate;
    }
    if (entries.size() >= list.capacity) return kStatusTableFull;
    entries.push_back(std::move(entry));
    return kStatusOk;
}
