#include "configd/recording_disk.h"

#include <algorithm>
#include <cerrno>
#include <random>
#include <set>

namespace {
constexpr const char kMemory[] = "run/";

bool is_memory(const std::string& path) { return path.starts_with(kMemory); }

std::string folder_of(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/', path.size() - 2);  // a folder's own slash does not count
    return slash == path.npos ? "" : path.substr(0, slash + 1);
}

// What may be found of bytes that were written and not synced: none, all, the first of them, blocks of zeros among
// them.
std::vector<std::string> remains(const std::string& safe, const std::string& unsafe)
{
    constexpr std::size_t kStep = 96, kBlock = 128;
    std::vector<std::string> found{safe};
    if (unsafe.empty()) return found;
    for (std::size_t n = 1; n < unsafe.size(); n += kStep) found.push_back(safe + unsafe.substr(0, n));
    found.push_back(safe + unsafe.substr(0, unsafe.size() - 1));
    found.push_back(safe + unsafe);
    found.push_back(safe + std::string(unsafe.size(), '\0'));
    for (std::size_t at = 0; at < unsafe.size(); at += kBlock) {
        std::string holed = unsafe;
        std::fill_n(holed.begin() + static_cast<std::ptrdiff_t>(at), std::min(kBlock, holed.size() - at), '\0');
        found.push_back(safe + holed);
    }
    return found;
}
}  // namespace

RecordingDisk::RecordingDisk(const Image& image)
{
    for (const auto& [path, content] : image) {
        start_[path] = startContents_.size();
        startContents_.push_back(content);
    }
    entries_ = start_;
    contents_ = startContents_;
}

int RecordingDisk::next()
{
    const int now = changes++;
    if (now == failAt) failedBehind = recorded();
    return failAt >= 0 && now >= failAt && now - failAt < failures ? error : 0;
}

bool RecordingDisk::is_there(const std::string& path) const
{
    return path == "." || entries_.contains(path) || entries_.contains(path + "/");
}

void RecordingDisk::apply(const Names& names, Entries& entries)
{
    for (const auto& [path, file] : names) {
        if (file == kGone)
            entries.erase(path);
        else
            entries[path] = file;
    }
}

void RecordingDisk::note(Names names)
{
    apply(names, entries_);
    const std::string folder = folder_of(names.front().first);
    record_.push_back({.what = Operation::kNames, .folder = folder, .names = std::move(names)});
}

Storage RecordingDisk::operations()
{
    const auto create = [this](const std::string& path, int& file) {
        if (const int failed = next()) return failed;
        if (entries_.contains(path)) note({{path, kGone}});
        if (!entries_.contains(folder_of(path))) return ENOENT;
        file = static_cast<int>(contents_.size());
        contents_.emplace_back();
        note({{path, static_cast<std::size_t>(file)}});
        return 0;
    };
    const auto write = [this](int file, std::string_view content) {
        const int failed = next();
        const auto inode = static_cast<std::size_t>(file);
        const std::string written(content.substr(0, failed ? content.size() / 2 : content.size()));
        contents_[inode] += written;
        record_.push_back({.what = Operation::kWrite, .file = inode, .content = written});
        return failed;
    };
    const auto sync = [this](int file) {
        if (const int failed = next()) return failed;
        if (syncs) record_.push_back({.what = Operation::kSync, .file = static_cast<std::size_t>(file)});
        return 0;
    };
    const auto rename = [this](const std::string& from, const std::string& to) {
        if (const int failed = next()) return failed;
        if (!entries_.contains(from)) return ENOENT;
        // Two names of one file stay as they are.
        const auto there = entries_.find(to);
        if (there == entries_.end() || there->second != entries_[from]) note({{to, entries_[from]}, {from, kGone}});
        return 0;
    };
    const auto link = [this](const std::string& from, const std::string& to) {
        if (const int failed = next()) return failed;
        if (!hasLinks) return EPERM;
        if (!entries_.contains(from)) return ENOENT;
        if (entries_.contains(to)) return EEXIST;
        note({{to, entries_[from]}});
        return 0;
    };
    const auto unlink = [this](const std::string& path) {
        if (const int failed = next()) return failed;
        if (!entries_.contains(path)) return ENOENT;
        note({{path, kGone}});
        return 0;
    };
    const auto sync_folder = [this](const std::string& folder) {
        if (const int failed = next()) return failed;
        if (syncsFolders)
            record_.push_back({.what = Operation::kSyncFolder, .folder = folder == "." ? "" : folder + "/"});
        return 0;
    };
    const auto make_folder = [this](const std::string& folder, unsigned) {
        if (const int failed = next()) return failed;
        if (is_there(folder)) return 0;
        contents_.emplace_back();
        note({{folder + "/", contents_.size() - 1}});
        return 0;
    };
    return {
        .read =
            [this](const std::string& path, std::size_t limit, std::string& content) {
                if (!entries_.contains(path)) return ENOENT;
                content = contents_[entries_[path]];
                return content.size() > limit ? EFBIG : 0;
            },
        .create = create,
        .write = write,
        .sync = sync,
        .close = [this](int) { return next(); },
        .rename = rename,
        .link = link,
        .unlink = unlink,
        .syncFolder = sync_folder,
        .makeFolder = make_folder,
        .exists = [this](const std::string& path) { return is_there(path); },
    };
}

void RecordingDisk::empty_memory()
{
    Names gone;
    for (const auto& [path, file] : entries_) {
        if (is_memory(path)) gone.emplace_back(path, kGone);
    }
    if (!gone.empty()) note(std::move(gone));
}

void RecordingDisk::damage(const std::string& path)
{
    const std::size_t file = entries_.at(path);
    contents_.push_back(contents_[file].substr(0, contents_[file].size() / 2));
    record_.push_back({.what = Operation::kWrite, .file = contents_.size() - 1, .content = contents_.back()});
    record_.push_back({.what = Operation::kSync, .file = contents_.size() - 1});
    note({{path, contents_.size() - 1}});
    record_.push_back({.what = Operation::kSyncFolder, .folder = folder_of(path)});
}

// What is in a folder that is not there is not there either.
RecordingDisk::Image RecordingDisk::image(const Entries& entries, const std::vector<const std::string*>& contents)
{
    Image image;
    for (const auto& [path, file] : entries) {  // a folder stands before what is in it
        const std::string folder = folder_of(path);
        if (folder.empty() || image.contains(folder)) image[path] = *contents[file];
    }
    return image;
}

RecordingDisk::Image RecordingDisk::crash(std::size_t after) const
{
    Entries entries = start_;
    for (std::size_t i = 0; i < after; i++) apply(record_[i].names, entries);
    std::vector<Content> all = contents(after);
    std::vector<const std::string*> whole;
    for (Content& content : all) whole.push_back(&(content.safe += content.unsafe));
    return image(entries, whole);
}

std::vector<RecordingDisk::Content> RecordingDisk::contents(std::size_t after) const
{
    std::vector<Content> found(contents_.size());
    for (std::size_t i = 0; i < startContents_.size(); i++) found[i].safe = startContents_[i];
    for (std::size_t i = 0; i < after; i++) {
        const Operation& operation = record_[i];
        if (operation.what == Operation::kWrite) found[operation.file].unsafe += operation.content;
        if (operation.what == Operation::kSync)
            found[operation.file].safe += std::exchange(found[operation.file].unsafe, {});
    }
    return found;
}

std::uint64_t RecordingDisk::cut(std::size_t after, const std::function<void(const Image&)>& left) const
{
    std::map<std::string, std::size_t> synced;  // by folder: everything before that is safe
    for (std::size_t i = 0; i < after; i++) {
        if (record_[i].what == Operation::kSyncFolder) synced[record_[i].folder] = i;
    }
    Entries safe = start_;
    std::vector<const Names*> unsafe;
    for (std::size_t i = 0; i < after; i++) {
        const Operation& operation = record_[i];
        if (operation.what != Operation::kNames || is_memory(operation.names.front().first)) continue;
        const auto until = synced.find(operation.folder);
        if (until != synced.end() && i < until->second)
            apply(operation.names, safe);
        else
            unsafe.push_back(&operation.names);
    }
    std::erase_if(safe, [](const auto& entry) { return is_memory(entry.first); });

    std::set<std::size_t> named;  // nobody finds the others
    for (const auto& [path, file] : safe) named.insert(file);
    for (const Names* names : unsafe) {
        for (const auto& [path, file] : *names) named.insert(file);
    }
    const std::vector<Content> whole = contents(after);
    std::vector<std::vector<std::string>> choices;
    std::uint64_t ways = std::uint64_t{1} << unsafe.size();
    for (std::size_t file = 0; file < whole.size(); file++) {
        choices.push_back(remains(whole[file].safe, named.contains(file) ? whole[file].unsafe : ""));
        ways *= choices.back().size();
    }

    std::mt19937_64 random(after);
    const bool all = ways <= kExhaustive;
    for (std::uint64_t i = 0; i < (all ? ways : kExhaustive); i++) {
        std::uint64_t way = all ? i : random() % ways;
        Entries entries = safe;
        for (const Names* names : unsafe) {
            if (way & 1) apply(*names, entries);
            way >>= 1;
        }
        std::vector<const std::string*> found;
        for (const auto& each : choices) {
            found.push_back(&each[static_cast<std::size_t>(way % each.size())]);
            way /= each.size();
        }
        left(image(entries, found));
    }
    return ways;
}
