// The terminal access rules: who may not log in on this line is refused here and does not come back.
#pragma once

#include <pwd.h>

// Whether the terminal-access file at `path` lets the user in. Without that file everybody may; one that cannot be read
// is logged and lets nobody in. `host` is empty for a login that is not remote.
bool access_file_allows(const char* path, const char* user, const char* tty, const char* host);

// Returns only when the user may log in on the terminal, going by "/etc/usertty".
void checktty(const char* user, const char* tty, const passwd* entry);

// Logs a refused login.
void badlogin(const char* name);

// Waits five seconds, so that refusals cannot be had in quick succession, and ends the program.
[[noreturn]] void sleepexit(int status);
