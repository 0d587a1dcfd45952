// Addresses as text. Each formatter has one buffer, overwritten by its next call: two calls of the same formatter in
// one argument list show the same text twice.
#pragma once

#include <cstdint>

const char* CliFormatIPv4(std::uint32_t address);  // host order
const char* CliFormatMAC(const void* mac);         // six bytes; lower case, dashes between them
