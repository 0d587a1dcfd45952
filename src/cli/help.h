// Help from the command table: what may come next on the line, and the commands by category.
#pragma once

#include "cli/edit_context.h"
#include "console/session.h"

// Lists what may stand at the current place of the line: a newline, then columns. Returns whether it listed anything;
// true whenever the current word is empty.
bool help(const EditContext& edit, int term);
