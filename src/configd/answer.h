// The answer to one request: the record and the table that follows it.
#pragma once

#include <vector>

#include "service/record.h"

struct Answer {
    ComParam record{};
    std::vector<unsigned char> table;
};
