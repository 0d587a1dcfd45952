// Programs that a command starts: never through a shell, and with the signals as an ordinary program finds them.
#pragma once

struct ChildEnd {
    bool started;
    int status;  // as waitpid(2) gives it
};

// Runs a program whose output goes to the terminal while the keys stay with the console: Ctrl-C, the end of the input
// and a hang-up end it, other keys wait until it has ended. Every key restarts the session's time-out.
ChildEnd run_watched(const char* path, const char* const* words);

// Gives the terminal, as it was found, to a program until that ends; the session's time-out rests meanwhile.
ChildEnd run_in_front(const char* path, const char* const* words);
