// The console password: checked with code 11, changed with 301. Both are answered with an empty payload.
#pragma once

#include "service/record.h"

namespace password_record
{
inline constexpr TextField password{63, 16};     // the password to test, or the current one
inline constexpr TextField newPassword{79, 16};  // 301 only
}  // namespace password_record
