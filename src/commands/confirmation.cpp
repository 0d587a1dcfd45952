#include "commands/confirmation.h"

#include "console/messages.h"
#include "prompts/dialogue.h"
#include "prompts/prompts.h"
#include "prompts/validators.h"

namespace {
constexpr std::uint32_t kConfirm = 133;  // the stage
}

Confirmation confirm(ActionBlock& call, int term, const char* question)
{
    if (call.stage == 0) {
        CliPromptX("%s", question);
        call.stage = kConfirm;
        return Confirmation::pending;
    }
    if (char* answer = answer_text(call); *answer) {
        ParmList value{};
        const std::uint32_t refusal = parse_yesno(answer, value);
        if (refusal == kOk) {
            call.stage = 0;
            return value.value[0] ? Confirmation::yes : Confirmation::no;
        }
        PrintMsg(term, refusal);
    }
    CliPromptLast();
    return Confirmation::pending;
}
