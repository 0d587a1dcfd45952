#include "configd/memory_storage.h"

#include <cerrno>

int MemoryStorage::next()
{
    const int now = changes++;
    if (readOnly) return EROFS;
    return failAt >= 0 && (now == failAt || (failOn && now > failAt)) ? error : 0;
}

Storage MemoryStorage::operations()
{
    const auto rename = [this](const std::string& from, const std::string& to) {
        if (const int failed = next()) return failed;
        const auto moved = files.extract(from);
        if (moved.empty()) return ENOENT;
        files[to] = moved.mapped();
        return 0;
    };
    return {
        .read =
            [this](const std::string& path, std::size_t limit, std::string& content) {
                if (!files.contains(path)) return ENOENT;
                content = files[path];
                return content.size() > limit ? EFBIG : 0;
            },
        .create =
            [this](const std::string& path, int& file) {
                if (const int failed = next()) return failed;
                open_ = path;
                files[path].clear();
                file = 3;
                return 0;
            },
        .write =
            [this](int, std::string_view content) {
                const int failed = next();
                files[open_] += content.substr(0, failed != 0 ? content.size() / 2 : content.size());
                return failed;
            },
        .sync = [this](int) { return next(); },
        .close = [this](int) { return next(); },
        .rename = rename,
        .link =
            [this](const std::string& from, const std::string& to) {
                if (const int failed = next()) return failed;
                if (!hasLinks) return EPERM;
                if (!files.contains(from)) return ENOENT;
                return files.emplace(to, files[from]).second ? 0 : EEXIST;
            },
        .unlink =
            [this](const std::string& path) {
                if (const int failed = next()) return failed;
                return files.erase(path) > 0 ? 0 : ENOENT;
            },
        .syncFolder = [this](const std::string&) { return next(); },
        .makeFolder = [](const std::string&, unsigned) { return 0; },
        .exists = [this](const std::string& path) { return files.contains(path); },
    };
}
