// Where every key of a logged-in session goes while no dialogue is open.
#pragma once

#include "console/session.h"

// Routes the slot's key to the editor of the mode that the session is in. Enter parses the line and runs its command;
// after `logout` the slot has ended and nothing of it is touched any more.
void process_cmd_input(Session& slot);
