// The answer to one request: the record and the table that follows it, and when it goes out.
#pragma once

#include <chrono>
#include <vector>

#include "service/record.h"

struct Answer {
    ComParam record{};
    std::vector<unsigned char> table{};
    std::chrono::milliseconds delay{};  // held back for so long; the other clients do not wait
};
