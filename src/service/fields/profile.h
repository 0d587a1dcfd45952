// An interface's default profile (code 1807).
#pragma once

#include "service/record.h"

namespace default_profile_record {
inline constexpr TextField profile{24, 16};
inline constexpr TextField interface {
    55, 16
};
}  // namespace default_profile_record
