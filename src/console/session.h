// The session slots and what belongs to them. Only slot 0 is ever served by the key loop.
#pragma once

#include <cstdint>

#include "values/parm_list.h"

struct EditContext;  // cli/edit_context.h

enum SessionState : std::uint8_t {
    kLoggedIn = 0,    // reading a command or the answer to a question
    kKeyPending = 2,  // a key waits for command_process
    kEnteringPassword = 3,
    kLoginNeeded = 5,  // banner and password prompt must be shown
    kEnding = 6,
};

// What an action function is called with.
struct ActionBlock {
    std::uint32_t stage;  // 0: no dialogue; else the question that waits for an answer
    std::uint16_t cmdId;  // of the matched command row
    std::uint16_t spare;
    ParmList parms;  // in a dialogue the answer's text is at value[count]
};
inline constexpr std::uint32_t kAnyKeyStage = 1;       // the next key of any kind continues
inline constexpr std::uint32_t kUnseenStage = 0x8000;  // set in a stage: the answer is read without echo

using Action = void (*)(ActionBlock& call, int term);

struct Session {
    SessionState state;
    std::int32_t key;   // the key just read
    std::int32_t term;  // terminal number, equal to the slot number
    ActionBlock call;
    EditContext* edit;  // allocated once by init_session, never freed
};

inline constexpr int kSessions = 3;
inline constexpr int kPromptSize = 20;  // 15 characters, "> " grown to ">>> ", NUL

extern Session session[kSessions];
extern char Prompt[kSessions][kPromptSize];
extern std::uint8_t promptMode[kSessions];  // 0 express, else advanced
extern int SessionCnt;
extern unsigned timeout;  // seconds without a key that end the program

struct CommandInquiry {
    Word words[2];              // cleared at every pass of command_process
    Session* slots[kSessions];  // the slot while it is logged in, else null
};
extern CommandInquiry CmdPrcInq;

// Ctrl-E: the other prompt mode. ">> " takes the place of the prompt's last blank, or the blank its place again.
void toggle_prompt_mode(int term);

// Ends the logged-in session; defined with the key loop, called by the executor.
void logout(Session& slot);
