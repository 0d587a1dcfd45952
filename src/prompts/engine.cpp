#include "prompts/engine.h"

#include "cli/line_edit.h"
#include "cli/parse.h"
#include "cli/tables.h"
#include "console/messages.h"
#include "console/terminal.h"

namespace {
bool echoes(const Session& slot) { return (slot.call.stage & kUnseenStage) == 0; }

void end_dialogue(Session& slot)
{
    slot.call.stage = 0;
    slot.call.parms.count = 0;
    reset_pb(*slot.edit);
    prn_msg(slot.term, Prompt[slot.term]);
}

void take_answer(Session& slot)
{
    LineRecord& line = slot.edit->line;
    ParmList& words = slot.call.parms;
    put_char(slot.term, '\n');
    line.text[line.length] = '\0';

    // A command that has filled the vector, or has no action, cannot take an answer: better no dialogue than a stuck
    // one.
    const Action action = words.count < ParmList::kCapacity ? CliGetActionFunc(slot.call.cmdId) : nullptr;
    if (action) {
        words.value[words.count] = reinterpret_cast<Word>(line.text);
        action(slot.call, slot.term);
    } else {
        slot.call.stage = 0;
    }
    clear_line(line);
    if (slot.call.stage == 0) end_dialogue(slot);
}

void refuse_longer_answer(const Session& slot)
{
    put_char(slot.term, '\n');
    PrintMsg(slot.term, kWordTooLong);
    prn_msg(slot.term, " Retry : ");
    show_line(slot.edit->line, slot.term, echoes(slot));
}
}  // namespace

void process_staged_input(Session& slot)
{
    LineRecord& line = slot.edit->line;
    if (slot.key == key::kEnter || slot.call.stage == kAnyKeyStage) return take_answer(slot);
    if (slot.key == key::kCtrlE) {
        toggle_prompt_mode(slot.term);
        put_char(slot.term, '\a');
    } else if (key::printable(slot.key) && line.length >= kAnswerCapacity) {
        refuse_longer_answer(slot);
    } else {
        line_edit(line, slot.term, slot.key, echoes(slot));
    }
}
