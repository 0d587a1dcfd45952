// The key loop: reads one key at a time for slot 0 and hands it to the password step, to a dialogue or to the command
// line. Ctrl-C takes back what is being typed; a time without keys and the end of the input end the program.
#pragma once

#include "console/session.h"

void console_init();                        // all three slots
int init_session(Session& slot, int term);  // returns 1; what fails is reported and does not stop the session

// Serves the slot until its session ends, then restores the terminal and ends the process with status 0.
[[noreturn]] void console_process();

// One pass of the loop: shows the banner when it is due, waits for a key and serves it. False once the session has
// ended or no further key can come.
bool serve_key(Session& slot);

void command_process();  // hands the pending key of every logged-in slot to its dialogue or its command line

void abort_cmd(Session& slot);   // drops the line and the dialogue in progress and prompts
void stop_login(Session& slot);  // the password step begins again at the next key

// By slot number.
void EndSession(int n);
std::int32_t TakeKey(int n);  // the slot's pending key; the slot is then waiting for the next one
void RestartLogin(int n);
