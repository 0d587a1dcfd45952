#include "configd/interface_cache.h"

#include <unistd.h>
#include <utility>

#include "configd/linux/interface_changes.h"

InterfaceCache::InterfaceCache(InterfaceCache&& other) noexcept
    : device_(other.device_), changes_(std::exchange(other.changes_, -1))
{
}

InterfaceCache::~InterfaceCache()
{
    if (changes_ >= 0) close(changes_);
}

void InterfaceCache::watch() { changes_ = device::watch_interfaces(); }

int InterfaceCache::read(std::vector<device::Interface>& table)
{
    if (changes_ < 0) return device_.read_interfaces(table);
    if (device::drain_changes(changes_))
        isCurrent_ = false;  // before reading: a change meanwhile is told the next time
    if (!isCurrent_) {
        kept_.clear();
        if (const int error = device_.read_interfaces(kept_)) return error;
        isCurrent_ = true;
    }
    table = kept_;
    return 0;
}
