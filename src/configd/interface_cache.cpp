#include "configd/interface_cache.h"

int InterfaceCache::read(std::vector<device::Interface>& table)
{
    if (!isCurrent_) {
        kept_.clear();
        if (const int error = device_.read_interfaces(kept_)) return error;
        isCurrent_ = keeps_;
    }
    table = kept_;
    return 0;
}
