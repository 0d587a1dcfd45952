#include "configd/store.h"

#include <cerrno>
#include <cstring>

#include "configd/log.h"

namespace {
constexpr const char* kEnding = ".json";

ServiceStatus report(const char* what, int error)
{
    if (error != 0) log_line(LOG_ERR, "%s: %s", what, std::strerror(error));
    return storage_status(error);
}
}  // namespace

Store::Store(const Model& model, Storage storage, Folders folders)
    : model_(model), storage_(std::move(storage)), folders_(std::move(folders)),
      runningFile_(folders_.runtime + "/running" + kEnding), savedFile_(folders_.state + "/config" + kEnding),
      previousFile_(folders_.state + "/config.previous" + kEnding), running_(model)
{
}

void Store::start()
{
    report("runtime folder", storage_.makeFolder(folders_.runtime, kRuntimeMode));
    report("state folder", storage_.makeFolder(folders_.state, kStateMode));

    if (load(runningFile_, running_) == Loaded::kYes)
        log_line(LOG_NOTICE, "going on with the running configuration");
    else
        running_ = saved();
}

Store::Loaded Store::load(const std::string& path, Configuration& into)
{
    std::string content, why;
    const int error = storage_.read(path, kLargestFile, content);
    if (error == ENOENT) return Loaded::kNoFile;
    if (error == 0 && into.parse(content, why)) return Loaded::kYes;
    set_aside(path, error != 0 ? std::strerror(error) : why);
    return Loaded::kRejected;
}

void Store::set_aside(const std::string& path, const std::string& why)
{
    const std::string stem = path.substr(0, path.size() - std::strlen(kEnding)) + ".rejected-";
    int number = 1;
    while (number < kMostRejected && storage_.exists(stem + std::to_string(number) + kEnding)) number++;
    const std::string aside = stem + std::to_string(number) + kEnding;

    log_line(LOG_ERR, "%s cannot be used: %s", path.c_str(), why.c_str());
    if (const int error = storage_.rename(path, aside))
        log_line(LOG_ERR, "%s could not be set aside: %s", path.c_str(), std::strerror(error));
    else
        log_line(LOG_ERR, "it is kept as %s", aside.c_str());
}

Configuration Store::saved()
{
    Configuration found(model_);
    const Loaded current = load(savedFile_, found);
    if (current == Loaded::kYes) {
        log_line(LOG_NOTICE, "starting from the saved configuration");
    } else if (load(previousFile_, found) == Loaded::kYes) {
        // No file: a power cut came between the two renames of a save, which the one before has survived.
        log_line(LOG_WARNING, "starting from the configuration saved before");
    } else {
        log_line(current == Loaded::kNoFile ? LOG_NOTICE : LOG_WARNING, "starting from the factory configuration");
    }
    return found;
}

ServiceStatus Store::change(Configuration next)
{
    const std::string fresh = runningFile_ + ".new";
    int error = write_new(fresh, next.text(), false);
    if (error == 0) error = storage_.rename(fresh, runningFile_);
    if (error != 0) return report("the running configuration was not changed", error);
    running_ = std::move(next);
    return kStatusOk;
}

ServiceStatus Store::save()
{
    const std::string fresh = savedFile_ + ".new";
    int error = write_new(fresh, running_.text(), true);
    if (error == 0) error = replace_saved(fresh);
    if (error == 0) error = storage_.syncFolder(folders_.state);
    if (error == 0) log_line(LOG_NOTICE, "configuration saved");
    return report("the configuration was not saved", error);
}

void Store::restore()
{
    Configuration next = saved();
    if (change(next) == kStatusOk) return;
    // It is in force all the same; without its file a restart of the service starts from saved too.
    report("running configuration", forget(runningFile_));
    running_ = std::move(next);
}

ServiceStatus Store::clear()
{
    // The previous one first: while it is there it would stand in for a saved one that is not.
    int error = forget(previousFile_);
    if (error == 0) error = storage_.syncFolder(folders_.state);
    if (error == 0) error = forget(savedFile_);
    if (error == 0) error = storage_.syncFolder(folders_.state);
    if (error == 0) error = forget(runningFile_);
    if (error != 0) return report("the configuration was not cleared", error);
    running_ = Configuration(model_);
    log_line(LOG_NOTICE, "configuration cleared");
    return kStatusOk;
}

int Store::write_new(const std::string& path, const std::string& content, bool durable)
{
    if (content.empty()) return ENOMEM;
    if (content.size() > kLargestFile) return EFBIG;  // it could not be read back

    int file = -1;
    if (const int error = storage_.create(path, file)) return error;
    int error = storage_.write(file, content);
    if (error == 0 && durable) error = storage_.sync(file);
    const int closed = storage_.close(file);
    if (error == 0) error = closed;
    if (error != 0) storage_.unlink(path);
    return error;
}

// Between the two renames there is no saved file; saved() then finds the same one under its other name.
int Store::replace_saved(const std::string& fresh)
{
    const int kept = storage_.rename(savedFile_, previousFile_);
    int error = kept == ENOENT ? 0 : kept;
    if (error == 0) {
        error = storage_.rename(fresh, savedFile_);
        if (error != 0 && kept == 0) storage_.rename(previousFile_, savedFile_);
    }
    if (error != 0) storage_.unlink(fresh);
    return error;
}

int Store::forget(const std::string& path)
{
    const int error = storage_.unlink(path);
    return error == ENOENT ? 0 : error;
}
