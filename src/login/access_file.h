// The terminal-access file: which users may log in on which terminals and from which hosts.
//
//     root  ttyS0 tty1 @console.example   # each line: a user, then terminals and remote hosts
//     *     ttyS0                         # any user
//
// A line stands for its user or, with "*", for any. A user whom no line names may log in everywhere; else one word of
// one of the user's lines must be the terminal (with or without "/dev/") or, after "@", the remote host, case ignored.
#pragma once

#include <string_view>

// `text` is the file, whatever it holds. `tty` has no "/dev/"; `host` is empty for a login that is not remote.
bool terminal_allowed(std::string_view text, std::string_view user, std::string_view tty, std::string_view host);
