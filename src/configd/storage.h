// All file work of the service, as one struct of functions: a test puts a recording or failing one in the place of the
// real.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "service/status.h"

// An int result is 0 or an errno value.
struct Storage {
    // The whole file; EFBIG when it is larger than the limit, EINVAL when it is no ordinary file.
    std::function<int(const std::string& path, std::size_t limit, std::string& content)> read;
    // A new file that only the owner may read or write, in the place of one that is there.
    std::function<int(const std::string& path, int& file)> create;
    std::function<int(int file, std::string_view content)> write;
    std::function<int(int file)> sync;
    std::function<int(int file)> close;  // the file is closed in any case
    std::function<int(const std::string& from, const std::string& to)> rename;
    // A second name for a file. EPERM, EOPNOTSUPP: this file system has none; EEXIST: `to` is there already.
    std::function<int(const std::string& from, const std::string& to)> link;
    std::function<int(const std::string& path)> unlink;
    std::function<int(const std::string& folder)> syncFolder;
    std::function<int(const std::string& folder, unsigned mode)> makeFolder;  // there already: 0
    std::function<bool(const std::string& path)> exists;
};

Storage posix_storage();

// A file with this content, or none. A durable one survives a power cut as soon as the name that it is given does.
enum class Durable { kNo, kYes };
int write_whole(const Storage& storage, const std::string& path, std::string_view content, Durable durable);

// A folder and those above it, which a power cut does not take away again. There already: 0.
int make_folders(const Storage& storage, const std::string& folder, unsigned mode);

// What a failure means to the one who asked; 0 is kStatusOk.
ServiceStatus storage_status(int error);
