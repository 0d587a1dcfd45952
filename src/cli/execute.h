// Where every key of a logged-in session goes while no dialogue is open.
#pragma once

#include "console/session.h"

void process_cmd_input(Session& slot);
