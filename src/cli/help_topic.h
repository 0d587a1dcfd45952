// The help command: a dialogue that lists the categories of commands, asks for one, and lists the commands in it, a
// screenful at a time.
#pragma once

#include "console/session.h"

void help_topic(ActionBlock& call, int term);

// Prints the categories that have commands, numbered from 1, and asks for a number. Returns how many there are.
int CliListCategories(int term);
