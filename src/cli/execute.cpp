#include "cli/execute.h"

#include "cli/line_edit.h"
#include "cli/parse.h"
#include "cli/smart_edit.h"
#include "cli/tables.h"
#include "console/messages.h"
#include "console/terminal.h"

namespace {
bool is_normal(const EditContext& edit) { return edit.editMode == kNormalEdit; }

void change_prompt_mode(Session& slot)
{
    toggle_prompt_mode(slot.term);
    prn_msg(slot.term, "\a\n");
    PrintMsg(slot.term, promptMode[slot.term] ? kAdvancedPromptMode : kExpressPromptMode);
    show_prompt_and_line(slot.edit->line, slot.term, true);
}

// A line that is refused is lost in normal mode. In smart mode it is shown again, to be edited on.
bool finish_parse(Session& slot)
{
    EditContext& edit = *slot.edit;
    if (is_normal(edit)) {
        if (parse_cmdline(slot)) return true;
        reset_pb(edit);
        return false;
    }
    if (parse_return(*edit.current, slot)) return true;
    show_line(edit.line, slot.term, true);
    return false;
}

void run_command(Session& slot)
{
    if (slot.call.cmdId == kLogoutCommand) return logout(slot);

    if (const Action action = CliGetActionFunc(slot.call.cmdId)) action(slot.call, slot.term);
    if (slot.call.stage == 0) {
        slot.call.parms.count = 0;
        prn_msg(slot.term, Prompt[slot.term]);
        reset_pb(*slot.edit);
    }
    clear_line(slot.edit->line);
}

void enter(Session& slot)
{
    EditContext& edit = *slot.edit;
    put_char(slot.term, '\n');
    if (edit.line.length > 0) copy_to_hiscmd(edit.history, edit.line);
    edit.line.text[edit.line.length] = '\0';
    edit.current->word[edit.current->wordLength] = '\0';
    if (finish_parse(slot)) run_command(slot);
}
}  // namespace

void process_cmd_input(Session& slot)
{
    if (slot.key == key::kEnter) return enter(slot);
    if (slot.key == key::kCtrlE) return change_prompt_mode(slot);
    if (!is_normal(*slot.edit)) return smart_edit(slot, slot.key);
    if (slot.key == key::kCtrlX) return switch_to_smart(slot);
    normal_edit(*slot.edit, slot.term, slot.key, true);
}
