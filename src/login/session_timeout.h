// The end of a session in which nobody types: the alarm signal ends the program in every state.
#pragma once

// From here on the alarm signal ends the program: says so after `timeout` seconds (console/session.h), restores the
// terminal, exits with status 0.
void install_timeout_handler();

// The terminal's attributes are kept aside from here on, so that the handler can bring them back.
void keep_terminal_attributes();
