// A question that has no default: asked again until it is answered with yes or no.
#pragma once

#include "console/session.h"

enum class Confirmation { pending, no, yes };

// Asks the question when the call is new, else takes the answer to it. Unless it is still pending the dialogue is over.
Confirmation confirm(ActionBlock& call, int term, const char* question);
