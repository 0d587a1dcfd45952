// What the process list shows for the console.
#pragma once

// Moves the environment away from behind the arguments and remembers the space of both as what a title may take.
void initproctitle(int argc, char** argv);

// Shows "prefix -- text", cut to that space. Without it, or when the two are too long together, nothing changes.
void setproctitle(const char* prefix, const char* text);
