// Stands in for the IPC client library of an executable that is linked with it: requests go nowhere but into a list,
// and a test says what comes back.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "service/record.h"

namespace service_stand_in {
// Turns the request into its answer and adds a table, if any, to go behind it. Other than 0: the exchange fails.
using Answer = std::function<std::uint32_t(ComParam& record, std::string& table)>;

void reset(Answer answer = {});     // without an answer every request comes back with status 0
std::vector<ComParam>& requests();  // as they were sent, since reset
std::vector<std::uint16_t> codes_sent();
int unreleased();  // responses that nobody has released
}  // namespace service_stand_in
