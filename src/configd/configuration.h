// A whole configuration: the values of every section and the entries of every list, from and to the text of the stored
// file. What the file has beyond the model (an older program reads a newer one's file) is kept and written back.
#pragma once

#include <string>
#include <vector>

#include "configd/settings.h"
#include "configd/settings_json.h"

struct Entry {
    Bytes bytes;
    Json extra;  // the keys of its object that no column has
};

class Configuration {
public:
    // The factory values. The model outlives the configuration.
    explicit Configuration(const Model& model);

    // The section or list is one of the model's.
    const Bytes& values(const Section& section) const;
    Bytes& values(const Section& section);
    const std::vector<Entry>& entries(const List& list) const;
    std::vector<Entry>& entries(const List& list);

    std::string text() const;

    // false: the configuration stays as it was, and why says in one line what is wrong with the text. A text of an
    // older format is understood too; text() then gives it in this program's.
    bool parse(std::string_view text, std::string& why);

    static constexpr int kFormat = 1;

private:
    const Model* model_;
    std::vector<Bytes> sections_;            // in the model's order, as are
    std::vector<std::vector<Entry>> lists_;  // these
    Json extra_;
};

// As the stored file calls it: "system", "addresses.lan".
std::string place_of(const Section& section);

// The entry whose columns of that identity equal those of `bytes`; its index, or entries.size().
std::size_t find_entry(const List& list, const std::vector<Entry>& entries, std::uint8_t identity, const Bytes& bytes);

// Refuses what the list's check does, a duplicate and a full list; changes nothing then.
ServiceStatus add_entry(const List& list, std::vector<Entry>& entries, Entry entry);
