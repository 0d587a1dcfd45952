// The configuration in force and the saved one, and their files. Running is written whole after each change, so that a
// crash of the service alone loses nothing; saved is replaced by temporary file, fsync, rename and fsync of the folder,
// so that a power cut at any instant leaves the old or the new one. The version before is kept beside it. Nothing
// saved: factory.
#pragma once

#include <string>

#include "configd/configuration.h"
#include "configd/storage.h"

struct Folders {
    std::string runtime;  // running.json; emptied when the device starts
    std::string state;    // config.json, config.previous.json, config.rejected-N.json
};

class Store {
public:
    Store(const Model& model, Storage storage, Folders folders);

    // What was running before a restart of the service; else what was saved, or saved before; else factory. A file that
    // cannot be understood is set aside and logged.
    void start();

    const Configuration& running() const { return running_; }

    // On a status other than kStatusOk the running configuration is what it was.
    ServiceStatus change(Configuration next);

    // Saved becomes what is running. On a refusal the file that was saved is still there, whole.
    ServiceStatus save();

    // Running becomes what is saved, as when the device restarts.
    void restore();

    // Running and saved become factory. Nothing is written, so a full disk does not hinder it.
    ServiceStatus clear();

    static constexpr unsigned kRuntimeMode = 0755, kStateMode = 0700;  // of folders that are made
    static constexpr std::size_t kLargestFile = 1 << 20;
    static constexpr int kMostRejected = 9;

private:
    enum class Loaded { kYes, kNoFile, kRejected };
    Loaded load(const std::string& path, Configuration& into);
    void set_aside(const std::string& path, const std::string& why);
    Configuration saved();
    int write_new(const std::string& path, const std::string& content, bool durable);
    int replace_saved(const std::string& fresh);
    int forget(const std::string& path);

    const Model& model_;
    Storage storage_;
    Folders folders_;
    std::string runningFile_, savedFile_, previousFile_;
    Configuration running_;
};
