// Two helpers for texts that end up in fixed fields and on other people's screens.
#pragma once

#include <cstddef>

// Copies at most n - 1 characters and stores NUL in the rest, dst[n - 1] always. n is at least 1.
void xstrncpy(char* dst, const char* src, std::size_t n);

// Every character that is not printable ASCII becomes '?': what a remote peer named must not reach a terminal as a
// control sequence.
void make_printable(char* text);
