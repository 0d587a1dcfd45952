#include "configd/attempts.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>

#include "configd/log.h"

namespace {
constexpr const char* kFile = "/wrong-passwords";
constexpr std::size_t kLargestFile = 16;
constexpr unsigned kMost = 7;  // from here on the longest delay
static_assert(Attempts::kFirst.count() << (kMost - 1) >= Attempts::kLongest.count());

unsigned count_in(const std::string& content)
{
    unsigned count = kMost;
    std::from_chars(content.data(), content.data() + content.size(), count);
    return std::min(count, kMost);
}
}  // namespace

Attempts::Attempts(Storage storage, const std::string& folder) : storage_(std::move(storage)), file_(folder + kFile)
{
    std::string content;
    const int error = storage_.read(file_, kLargestFile, content);
    if (error != ENOENT) count_ = count_in(content);
}

std::chrono::milliseconds Attempts::wrong()
{
    const unsigned before = std::min(count_, kMost - 1);
    count_ = before + 1;
    write();
    return std::min(kFirst * (1 << before), kLongest);
}

void Attempts::right()
{
    if (count_ == 0) return;
    count_ = 0;
    write();
}

void Attempts::write() const
{
    if (file_.empty()) return;
    const std::string fresh = file_ + ".new";
    int error = count_ == 0 ? storage_.unlink(file_) : 0;
    if (count_ != 0) {
        error = write_whole(storage_, fresh, std::to_string(count_), Durable::kNo);
        if (error == 0) error = storage_.rename(fresh, file_);
    }
    if (error != 0 && error != ENOENT) log_line(LOG_WARNING, "%s: %s", file_.c_str(), std::strerror(error));
}
