// The lists of the IP filters, for what puts them in force.
#pragma once

#include "configd/settings.h"

// What happens on an interface to the packets that none of its filters matches; without an entry it does not filter.
namespace ip_filter_default {
using At = Within<20>;
inline constexpr At::TextField interface {
    0, 16
};
inline constexpr At::Field<std::uint32_t> action{16};  // ip_filter_record::kGrant or kDeny
}  // namespace ip_filter_default

extern const List& kIpFilters;         // ip_filter_entry
extern const List& kIpFilterDefaults;  // ip_filter_default
