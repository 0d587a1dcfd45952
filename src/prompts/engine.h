// The engine of staged dialogues: one question after another, each showing the current value as its default. It carries
// a dialogue from key to key; what is asked is the action's business (prompts/dialogue.h).
#pragma once

#include "console/session.h"

inline constexpr int kAnswerCapacity = 60;  // characters of an answer

// Handles the slot's key while its stage is not 0. Enter, or any key at kAnyKeyStage, calls the command's action with
// the address of the answer's text at the vector's count; the text is wiped when the action returns.
void process_staged_input(Session& slot);
