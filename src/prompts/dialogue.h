// A staged dialogue as a table of questions. An action with such a table reads: read the record when the stage is 0,
// run the dialogue, finish when it returns 0. The command's own parameters stay in the vector throughout.
#pragma once

#include <cstdint>
#include <span>

#include "console/messages.h"
#include "console/session.h"

// What was typed. An empty answer keeps the current value.
struct Answer {
    bool given;
    Word value;  // what the question's validator appended first; 0 without one
    char* text;  // as typed; a validator of texts has taken its quotes away
};

struct Next {
    std::uint32_t stage;          // the question to ask, the same one to ask it again; 0: the questions are over
    std::uint32_t refusal = kOk;  // message printed before it; one that takes a value is patched by `after`
    const char* shown = nullptr;  // the value that this asking shows in place of the question's own
};

struct Question {
    std::uint32_t stage;                  // with kUnseenStage in it: the answer is read without echo
    const char* text = nullptr;           // takes the value shown, if any
    const char* (*shown)() = nullptr;     // the current value, for a text that takes %s
    std::uint32_t (*number)() = nullptr;  // the current value, for a text that takes %d
    const char* (*wording)() = nullptr;   // in place of `text`, where the words depend on what was answered before
    Parser validate = nullptr;            // of an answer that is not empty; without one it is stored as typed
    Next (*after)(Answer answer);         // stores the answer if one was given, names the question that follows
};

// At stage 0 asks the first question of the table. Otherwise takes the answer to the question of the call's stage and
// asks the next one; an answer that the validator refuses brings its message and the same question again. Returns the
// stage it leaves in the call: 0 when the questions are over.
std::uint32_t run_dialogue(std::span<const Question> questions, ActionBlock& call, int term);

// What was typed, for a dialogue short enough to do without a table.
char* answer_text(const ActionBlock& call);
