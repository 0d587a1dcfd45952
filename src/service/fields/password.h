// The console password: checked with code 11, changed with 301. The answers have nothing in them but the notice.
#pragma once

#include "service/record.h"

namespace password_record {
inline constexpr TextField password{63, 16};     // the password to test, or the current one
inline constexpr TextField newPassword{79, 16};  // 301 only
inline constexpr TextField notice{95, 320};      // answer of 11: what the operator is to know at login; empty: nothing
}  // namespace password_record
