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
    return error;
}

int make_folder(const std::string& path, unsigned mode)
{
    if (mkdir(path.c_str(), mode) == 0) return result_of(chmod(path.c_str(), mode));  // whatever the umask is
    if (errno == EEXIST) return 0;
    const std::size_t parent = path.find_last_of('/');
    if (errno != ENOENT || parent == path.npos || parent == 0) return errno;

    constexpr unsigned kParentMode = 0755;
    if (const int error = make_folder(path.substr(0, parent), kParentMode)) return error;
    if (mkdir(path.c_str(), mode) != 0 && errno != EEXIST) return errno;
    return result_of(chmod(path.c_str(), mode));
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
