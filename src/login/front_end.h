// The start-up of the console on a terminal line: all that a login program does, for the user "root", and then the
// console in place of a shell. Who may use the console is the password step's business, not this one's.
#pragma once

[[noreturn]] void run_front_end(int argc, char** argv);
