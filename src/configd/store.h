// The configuration in force and the saved one, and their files. Running is written whole after each change, so that a
// crash of the service alone loses nothing; saved is replaced by temporary file, fsync, rename and fsync of the folder,
// so that a power cut at any instant leaves the old or the new one. The version before is kept beside it as a second
// name of the same file. Nothing saved: factory.
#pragma once

#include <optional>
#include <string>

#include "configd/configuration.h"
#include "configd/revisions.h"
#include "configd/storage.h"

struct Folders {
    std::string runtime;  // running.json; emptied when the device starts
    std::string state;    // config.json, config.previous.json, config.rejected-N.json, notice
};

class Store {
public:
    Store(const Model& model, Storage storage, Folders folders);

    // What was running before a restart of the service; else what was saved, or saved before; else factory. A file that
    // cannot be understood is set aside and logged.
    void start();

    const Configuration& running() const { return running_; }

    // The changes that follow are that connection's.
    void begin_request(std::uint64_t connection);
    // What was running when the request began; nullptr: it still is.
    const Configuration* before() const { return before_ ? &*before_ : nullptr; }

    std::uint32_t revision() const { return revisions_.current(); }
    // See Revisions.
    std::optional<Bytes> values_known(const Section& section, std::uint32_t revision, std::uint64_t connection) const;

    const Model& model() const { return model_; }

    // What the operator is to know about files that were set aside, a line without its end; empty: nothing. It lasts,
    // across restarts too, until the configuration is saved or cleared.
    const std::string& notice() const { return notice_; }

    // On a status other than kStatusOk the running configuration is what it was.
    ServiceStatus change(Configuration next);

    // Saved becomes what is running. On a refusal the file that was saved is still there, whole.
    ServiceStatus save();

    // Running becomes what is saved, as when the device restarts.
    void restore();

    // Running and saved become factory, and what was set aside goes too: nothing of the old is left on the device.
    // Nothing is written, so a full disk does not hinder it.
    ServiceStatus clear();

    static constexpr unsigned kRuntimeMode = 0755, kStateMode = 0700;  // of folders that are made
    static constexpr std::size_t kLargestFile = 1 << 20;
    static constexpr int kMostRejected = 9;

private:
    enum class Loaded { kYes, kNoFile, kSetAside, kInTheWay };  // what cannot be set aside is in the way of a save
    struct File {
        std::string path;
        const char* name;  // as the notice calls it
    };
    Loaded load(const File& file, Configuration& into);
    bool set_aside(const File& file, const std::string& why);
    Configuration saved();
    int make_state_folder();
    int keep_previous();
    int forget_saved();
    int forget(const std::string& path);
    void read_notice();
    void give_notice(const char* inForce);
    void drop_notice();
    void put_in_force(Configuration next);

    const Model& model_;
    Storage storage_;
    Folders folders_;
    File runningFile_, savedFile_, previousFile_;
    std::string noticeFile_;
    bool folderIsSafe_ = false;
    std::string rejections_;  // of files that were set aside just now: what the next notice begins with
    std::string notice_;
    Configuration running_;
    std::optional<Configuration> before_{};
    std::uint64_t connection_ = 0;  // whose request is carried out
    Revisions revisions_{};
};
