// A disk in memory behind the service's storage interface that remembers in which order things were done to it, and
// shows what a power cut would leave: what was not synced is there, is not, or is there in part. What lies in run/ is
// memory, which a power cut empties.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "configd/storage.h"

class RecordingDisk {
public:
    using Image = std::map<std::string, std::string>;  // files with their content; folders, which end in a slash

    explicit RecordingDisk(const Image& image = {{"disk/", ""}});
    Storage operations();  // they refer to this object

    std::size_t recorded() const { return record_.size(); }
    Image crash(std::size_t after) const;  // the service ends behind so many of the recorded operations
    // The power does. `left` is called with each disk that may be left; of more than kExhaustive, with so many of them
    // chosen by a fixed seed. Returns how many there are.
    std::uint64_t cut(std::size_t after, const std::function<void(const Image&)>& left) const;
    static constexpr std::uint64_t kExhaustive = 1 << 12;

    void empty_memory();                   // as when the device starts
    void damage(const std::string& path);  // as ageing flash would: at once and for good

    int changes = 0;                         // operations so far that change something
    int failAt = -1;                         // the number of the change that fails
    int failures = 1;                        // and how many with it
    int error = 0;                           // with this errno value
    std::size_t failedBehind = 0;            // so many recorded operations the first time
    bool hasLinks = true;                    // a file may have two names
    bool syncs = true, syncsFolders = true;  // false: it says so and does not

private:
    static constexpr std::size_t kGone = SIZE_MAX;
    using Names = std::vector<std::pair<std::string, std::size_t>>;  // what they name from then on, or kGone
    struct Operation {
        enum What { kNames, kWrite, kSync, kSyncFolder } what;
        std::string folder = {};  // of kNames, kSyncFolder
        Names names = {};
        std::size_t file = kGone;  // of kWrite, kSync
        std::string content = {};
    };
    using Entries = std::map<std::string, std::size_t>;
    struct Content {
        std::string safe, unsafe;
    };

    int next();
    bool is_there(const std::string& path) const;
    void note(Names names);
    static void apply(const Names& names, Entries& entries);
    static Image image(const Entries& entries, const std::vector<const std::string*>& contents);
    std::vector<Content> contents(std::size_t after) const;

    Entries start_, entries_;
    std::vector<std::string> startContents_, contents_;
    std::vector<Operation> record_;
};
