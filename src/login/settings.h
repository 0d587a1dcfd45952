// What the front end asks the configuration service for.
#pragma once

// Seconds without a key that end a session. Returns 0; 1 when the service does not give them, and `seconds` stays.
int CliGetSessionTimeout(unsigned* seconds);

// The system prompt, at most 15 characters and a NUL, into `buffer`. Returns 0; else 1, and `buffer` stays.
int CliGetSystemPrompt(char* buffer);

// Both, or what holds without the service: 600 seconds, "Command> ". Into timeout and Prompt of console/session.h.
void set_session_timeout();
void set_prompts();
