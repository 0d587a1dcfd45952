#include "configd/storage.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr mode_t kOwnerOnly = 0600;

int result_of(int returned) { return returned < 0 ? errno : 0; }

int read_open(int file, std::size_t limit, std::string& content)
{
    struct stat about {};
    if (fstat(file, &about) != 0) return errno;
    if (!S_ISREG(about.st_mode)) return EINVAL;
    if (about.st_size > static_cast<off_t>(limit)) return EFBIG;

    char piece[4096];
    for (;;) {
        const ssize_t got = read(file, piece, sizeof piece);
        if (got == 0) return 0;
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        content.append(piece, static_cast<std::size_t>(got));
        if (content.size() > limit) return EFBIG;  // it grew in the meantime
    }
}

int read_file(const std::string& path, std::size_t limit, std::string& content)
{
    content.clear();
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    if (file < 0) return errno;
    const int error = read_open(file, limit, content);
    close(file);
    return error;
}

int create_file(const std::string& path, int& file)
{
    if (unlink(path.c_str()) != 0 && errno != ENOENT) return errno;
    file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly);
    return result_of(file);
}

int write_file(int file, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int sync_folder(const std::string& path)
{
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return errno;
    const int error = result_of(fsync(folder));
    close(folder);
    return error == EINVAL ? 0 : error;  // a file system that has nothing to do for it
}

int make_folder(const std::string& path, unsigned mode)
{
    if (mkdir(path.c_str(), mode) == 0) return result_of(chmod(path.c_str(), mode));  // whatever the umask is
    return errno == EEXIST ? 0 : errno;
}

std::string folder_of(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    if (slash == path.npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}
}  // namespace

Storage posix_storage()
{
    return {
        .read = read_file,
        .create = create_file,
        .write = write_file,
        .sync = [](int file) { return result_of(fsync(file)); },
        .close = [](int file) { return result_of(close(file)); },
        .rename = [](const std::string& from,
                     const std::string& to) { return result_of(rename(from.c_str(), to.c_str())); },
        .link = [](const std::string& from,
                   const std::string& to) { return result_of(link(from.c_str(), to.c_str())); },
        .unlink = [](const std::string& path) { return result_of(unlink(path.c_str())); },
        .syncFolder = sync_folder,
        .makeFolder = make_folder,
        .exists =
            [](const std::string& path) {
                struct stat about {};
                return lstat(path.c_str(), &about) == 0;
            },
    };
}

int write_whole(const Storage& storage, const std::string& path, std::string_view content, Durable durable)
{
    int file = -1;
    if (const int error = storage.create(path, file)) return error;
    int error = storage.write(file, content);
    if (error == 0 && durable == Durable::kYes) error = storage.sync(file);
    const int closed = storage.close(file);
    if (error == 0) error = closed;
    if (error != 0) storage.unlink(path);
    return error;
}

int make_folders(const Storage& storage, const std::string& folder, unsigned mode)
{
    constexpr unsigned kParentMode = 0755;
    const std::string parent = folder_of(folder);
    if (parent == folder) return 0;
    if (const int error = make_folders(storage, parent, kParentMode)) return error;
    if (!storage.exists(folder)) {
        if (const int error = storage.makeFolder(folder, mode)) return error;
    }
    // One that is there may have been made just before an earlier service ended: its entry is written out all the same.
    // Where the folder above may not even be read, it is not the service that makes folders in it.
    const int error = storage.syncFolder(parent);
    return error == EACCES ? 0 : error;
}

ServiceStatus storage_status(int error)
{
    switch (error) {
    case 0: return kStatusOk;
    case ENOSPC:
    case EDQUOT: return kStatusStorageFull;
    case EROFS:
    case EACCES:
    case EPERM: return kStatusStorageReadOnly;
    default: return kStatusStorageFailed;
    }
}
