// What every fuzz target defines: one input, run from the same state each time. It starts no process, reaches no
// network and changes nothing outside memory and a temporary folder. A promise that does not hold ends the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// `what` says what went wrong when the promise does not hold.
inline void holds(bool promise, const char* what)
{
    if (promise) return;
    dprintf(STDERR_FILENO, "fuzz: %s\n", what);  // not the stream, which may be silenced
    std::abort();
}
