// The environment of the session: the user's, not that of whoever started the program.
#pragma once

#include <pwd.h>

// Empties the environment unless `keep`, then sets HOME, PATH, SHELL, TERM, MAIL and LOGNAME. TERM is taken over from
// before; HOME and MAIL of a kept environment stay.
void set_environment(const passwd& user, const char* name, bool keep);

// Whether the home directory holds a ".hushlogin" that the user can read.
bool wants_quiet_login(const passwd& user);
