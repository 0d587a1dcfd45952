// The terminal line that the program was started on: its names, its check, its taking over.
#pragma once

#include <sys/types.h>

// Sets ttyName and ttyId (login_values.h) from a path. The path must stay.
void name_terminal(const char* path);

// A character device that nobody has linked to from outside /dev.
bool is_good_terminal(const char* path);

// The path of standard input's terminal, named and checked; a bad one is logged and ends the program.
const char* find_terminal();

// Makes the line root's alone, drops what was typed ahead, and opens it anew as descriptors 0, 1 and 2. The line's
// attributes are afterwards as they were found. A line that cannot be opened is logged and ends the program.
void take_terminal_over(const char* path);

// The line goes to the user and to the group "tty", or to `gid` where there is no such group.
void give_terminal_to(uid_t uid, gid_t gid);

// Closes `first` and everything above it.
void close_descriptors_from(unsigned first);
