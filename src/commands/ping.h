// The system's ping program, which "ping" runs.
#pragma once

// The first of them that is there; tests put their own in their place.
extern const char* pingPrograms[2];
