#include "configd/cleared_counters.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>

#include "configd/log.h"
#include "configd/settings_json.h"

namespace {
constexpr const char* kFile = "/cleared-counters.json";
constexpr const char* kNames[] = {"interfaces", "clients"};  // in the order of Counted
constexpr std::size_t kLargestFile = 1 << 20;

json_t* to_json(const ClearedCounters::Group& group)
{
    json_t* object = json_object();
    for (const auto& [name, values] : group) {
        json_t* array = json_array();
        for (const std::uint64_t each : values)
            json_array_append_new(array, json_integer(static_cast<json_int_t>(each)));
        json_object_set_new(object, name.c_str(), array);
    }
    return object;
}

ClearedCounters::Group from_json(json_t* object)
{
    ClearedCounters::Group group;
    const char* name;
    json_t* array;
    json_object_foreach(object, name, array)
    {
        ClearedCounters::Values& values = group[name];
        for (std::size_t i = 0; i < json_array_size(array); i++)
            values.push_back(static_cast<std::uint64_t>(json_integer_value(json_array_get(array, i))));
    }
    return group;
}
}  // namespace

ClearedCounters::ClearedCounters(Storage storage, const std::string& folder)
    : storage_(std::move(storage)), file_(folder + kFile)
{
    std::string content;
    if (storage_.read(file_, kLargestFile, content) != 0) return;
    const Json root(json_loadb(content.data(), content.size(), 0, nullptr));
    if (!root) log_line(LOG_WARNING, "%s is no JSON: counters show what the machine counts", file_.c_str());
    for (std::size_t i = 0; i < groups_.size(); i++) groups_[i] = from_json(json_object_get(root.get(), kNames[i]));
}

ServiceStatus ClearedCounters::set_group(Counted what, Group next)
{
    Groups groups = groups_;
    groups[static_cast<std::size_t>(what)] = std::move(next);
    if (const int error = file_.empty() ? 0 : write(groups)) {
        log_line(LOG_ERR, "counters were not cleared: %s", std::strerror(error));
        return storage_status(error);
    }
    groups_ = std::move(groups);
    return kStatusOk;
}

ClearedCounters::Values ClearedCounters::since(Counted what, const std::string& name, Values now) const
{
    const auto cleared = group(what).find(name);
    if (cleared == group(what).end()) return now;
    for (std::size_t i = 0; i < now.size() && i < cleared->second.size(); i++)
        if (now[i] >= cleared->second[i]) now[i] -= cleared->second[i];
    return now;
}

int ClearedCounters::write(const Groups& groups) const
{
    const Json root(json_object());
    for (std::size_t i = 0; i < std::size(kNames); i++) json_object_set_new(root.get(), kNames[i], to_json(groups[i]));
    const std::unique_ptr<char, void (*)(void*)> text(json_dumps(root.get(), JSON_INDENT(2)), std::free);
    if (!text) return ENOMEM;

    const std::string fresh = file_ + ".new";
    int error = write_whole(storage_, fresh, text.get(), Durable::kNo);
    if (error == 0) error = storage_.rename(fresh, file_);
    if (error != 0) storage_.unlink(fresh);
    return error;
}
