#include "configd/store.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "configd/log.h"

namespace {
constexpr const char* kEnding = ".json";
constexpr const char* kFresh = ".new";  // of a file that takes another's place when it is whole
constexpr std::size_t kLongestNotice = 319;

ServiceStatus report(const char* what, int error)
{
    if (error != 0) log_line(LOG_ERR, "%s: %s", what, std::strerror(error));
    return storage_status(error);
}

std::string aside(const std::string& path, int number)
{
    return path.substr(0, path.size() - std::strlen(kEnding)) + ".rejected-" + std::to_string(number) + kEnding;
}

std::string name_of(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// A text that is not whole is never written, nor one that could not be read back.
int text_error(const std::string& text)
{
    if (text.empty()) return ENOMEM;
    return text.size() > Store::kLargestFile ? EFBIG : 0;
}

// Not every file system gives a file two names.
bool has_no_links(int error) { return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK; }
}  // namespace

Store::Store(const Model& model, Storage storage, Folders folders)
    : model_(model), storage_(std::move(storage)),
      folders_(std::move(folders)), runningFile_{folders_.runtime + "/running" + kEnding, "The running configuration"},
      savedFile_{folders_.state + "/config" + kEnding, "The saved configuration"},
      previousFile_{folders_.state + "/config.previous" + kEnding, "The one saved before"},
      noticeFile_(folders_.state + "/notice"), running_(model)
{
}

void Store::start()
{
    report("runtime folder", make_folders(storage_, folders_.runtime, kRuntimeMode));
    report("state folder", make_state_folder());
    read_notice();

    if (load(runningFile_, running_) == Loaded::kYes)
        log_line(LOG_NOTICE, "going on with the running configuration");
    else
        running_ = saved();
}

Store::Loaded Store::load(const File& file, Configuration& into)
{
    std::string content, why;
    const int error = storage_.read(file.path, kLargestFile, content);
    if (error == ENOENT) return Loaded::kNoFile;
    if (error == 0 && into.parse(content, why)) return Loaded::kYes;
    return set_aside(file, error != 0 ? std::strerror(error) : why) ? Loaded::kSetAside : Loaded::kInTheWay;
}

bool Store::set_aside(const File& file, const std::string& why)
{
    int number = 1;
    while (number < kMostRejected && storage_.exists(aside(file.path, number))) number++;
    const std::string to = aside(file.path, number);

    log_line(LOG_ERR, "%s cannot be used: %s", file.path.c_str(), why.c_str());
    rejections_ += std::string(file.name) + " could not be read and ";
    if (const int error = storage_.rename(file.path, to)) {
        log_line(LOG_ERR, "%s could not be set aside: %s", file.path.c_str(), std::strerror(error));
        rejections_ += "could not be set aside. ";
        return false;
    }
    log_line(LOG_ERR, "it is kept as %s", to.c_str());
    rejections_ += "is kept as " + name_of(to) + ". ";
    return true;
}

Configuration Store::saved()
{
    Configuration found(model_);
    const Loaded current = load(savedFile_, found);
    if (current == Loaded::kYes) {
        log_line(LOG_NOTICE, "starting from the saved configuration");
        give_notice("The saved one is in force.");
    } else if (load(previousFile_, found) == Loaded::kYes) {
        // No saved file: it was set aside, or power failed during a save on a file system without links.
        log_line(LOG_WARNING, "starting from the configuration saved before");
        give_notice("The one saved before is in force.");
    } else {
        log_line(current == Loaded::kNoFile ? LOG_NOTICE : LOG_WARNING, "starting from the factory configuration");
        give_notice("The factory configuration is in force.");
    }
    return found;
}

ServiceStatus Store::change(Configuration next)
{
    const std::string fresh = runningFile_.path + kFresh, text = next.text();
    int error = text_error(text);
    if (error == 0) error = write_whole(storage_, fresh, text, Durable::kNo);
    if (error == 0) error = storage_.rename(fresh, runningFile_.path);
    if (error != 0) return report("the running configuration was not changed", error);
    put_in_force(std::move(next));
    return kStatusOk;
}

void Store::put_in_force(Configuration next)
{
    revisions_.note(model_, running_, next, connection_);
    if (!before_) before_ = std::move(running_);
    running_ = std::move(next);
}

void Store::begin_request(std::uint64_t connection)
{
    before_.reset();
    connection_ = connection;
}

std::optional<Bytes> Store::values_known(const Section& section, std::uint32_t revision, std::uint64_t connection) const
{
    return revisions_.values_known(section, revision, connection, running_);
}

ServiceStatus Store::save()
{
    const std::string fresh = savedFile_.path + kFresh, text = running_.text();
    int error = text_error(text);
    if (error == 0) error = make_state_folder();
    if (error == 0) error = write_whole(storage_, fresh, text, Durable::kYes);
    if (error == 0) error = keep_previous();
    if (error == 0) error = storage_.rename(fresh, savedFile_.path);
    if (error == 0) error = storage_.syncFolder(folders_.state);
    if (error != 0) {
        storage_.unlink(fresh);
        rejections_.clear();
        return report("the configuration was not saved", error);
    }
    log_line(LOG_NOTICE, "configuration saved");
    drop_notice();
    give_notice("The one in force was saved in its place.");
    return kStatusOk;
}

// The saved file stays where it is until the new one takes its place. One that cannot be read is set aside and does not
// replace a good one saved before.
int Store::keep_previous()
{
    Configuration unused(model_);
    const Loaded current = load(savedFile_, unused);
    if (current == Loaded::kInTheWay) return EIO;
    if (current != Loaded::kYes) return 0;

    const std::string fresh = previousFile_.path + kFresh;
    int error = forget(fresh);
    if (error == 0) error = storage_.link(savedFile_.path, fresh);
    // Without links there is no saved file until the new one takes its place; saved() then finds it as the one before.
    if (has_no_links(error)) return storage_.rename(savedFile_.path, previousFile_.path);
    if (error == 0) error = storage_.rename(fresh, previousFile_.path);
    return error == 0 ? forget(fresh) : error;  // still there when both were names of one file
}

void Store::restore()
{
    Configuration next = saved();
    if (change(next) == kStatusOk) return;
    // It is in force all the same; without its file a restart of the service starts from saved too.
    report("running configuration", forget(runningFile_.path));
    put_in_force(std::move(next));
}

ServiceStatus Store::clear()
{
    int error = forget_saved();
    if (error == 0) error = forget(runningFile_.path);
    if (error != 0) return report("the configuration was not cleared", error);
    put_in_force(Configuration(model_));
    drop_notice();
    log_line(LOG_NOTICE, "configuration cleared");
    return kStatusOk;
}

int Store::forget_saved()
{
    // The previous one first: while it is there it would stand in for a saved one that is not.
    int error = forget(previousFile_.path);
    if (error == 0) error = storage_.syncFolder(folders_.state);
    if (error == 0) error = forget(savedFile_.path);
    for (const File* file : {&runningFile_, &savedFile_, &previousFile_}) {
        if (error == 0) error = forget(file->path + kFresh);
        for (int number = 1; error == 0 && number <= kMostRejected; number++) error = forget(aside(file->path, number));
    }
    return error == 0 ? storage_.syncFolder(folders_.state) : error;
}

int Store::forget(const std::string& path)
{
    const int error = storage_.unlink(path);
    return error == ENOENT ? 0 : error;
}

// Until it once was certain that a power cut leaves the folder itself.
int Store::make_state_folder()
{
    const int error = folderIsSafe_ ? 0 : make_folders(storage_, folders_.state, kStateMode);
    folderIsSafe_ = error == 0;
    return error;
}

void Store::read_notice()
{
    const auto printable = [](char c) { return c >= ' ' && c <= '~'; };
    if (storage_.read(noticeFile_, kLongestNotice, notice_) != 0 || !std::ranges::all_of(notice_, printable))
        notice_.clear();
}

// Where the file cannot be written the operator is told as long as the service runs.
void Store::give_notice(const char* inForce)
{
    if (rejections_.empty()) return;
    notice_ = (rejections_ + inForce).substr(0, kLongestNotice);
    rejections_.clear();
    if (write_whole(storage_, noticeFile_ + kFresh, notice_, Durable::kYes) == 0)
        storage_.rename(noticeFile_ + kFresh, noticeFile_);
}

void Store::drop_notice()
{
    if (notice_.empty()) return;
    notice_.clear();
    forget(noticeFile_);
}
