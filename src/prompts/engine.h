// The engine of staged dialogues: one question after another, each showing the current value as its default.
#pragma once

#include "console/session.h"

// Handles the slot's key while its stage is not 0.
void process_staged_input(Session& slot);
