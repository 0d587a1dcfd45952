#include "console/password.h"

#include <algorithm>
#include <cstring>

#include "cli/edit_context.h"
#include "cli/line_edit.h"
#include "cli/parse.h"
#include "commands/password.h"
#include "console/messages.h"
#include "console/terminal.h"
#include "prompts/prompts.h"
#include "service/client.h"
#include "service/fields/password.h"

namespace {
constexpr int kMajor = 1, kMinor = 8;
constexpr const char* kEdition = "e01";
constexpr const char* kFamily = "W";

constexpr int kLoginPrompt = 31;  // row of idsPrompt
constexpr int kLongestPassword = kPasswordSize - 1;

void ask(const Session& slot) { prn_msg(slot.term, idsPrompt[kLoginPrompt]); }

// The whole of a password that grew too long is dropped, so that nobody is let in by its beginning.
void refuse_long_password(Session& slot)
{
    prn_msg(slot.term, "\n");
    PrintMsg(slot.term, kPasswordTooLong);
    ask(slot);
    clear_line(slot.edit->line);
}

bool accepted(const Session& slot)
{
    const LineRecord& line = slot.edit->line;
    char typed[kPasswordSize] = {};
    std::memcpy(typed, line.text, static_cast<std::size_t>(std::clamp(line.length, 0, kLongestPassword)));
    const bool correct = check_password(slot.term, typed);
    explicit_bzero(typed, sizeof typed);
    return correct;
}

void print_notice(const Session& slot)
{
    const char* const notice = password_record::notice.get(usrComParam);
    if (*notice) print_warning(slot.term, notice);
    password_record::notice.clear(usrComParam);
}

void submit(Session& slot)
{
    if (accepted(slot)) {
        new_session(slot);
        slot.state = kLoggedIn;
        prn_msg(slot.term, "\r\n\n");
        PrintMsg(slot.term, kWelcome);
        print_notice(slot);
        prn_msg(slot.term, Prompt[slot.term]);
    } else {
        prn_msg(slot.term, "\n");
        PrintMsg(slot.term, kIncorrectPassword);
        ask(slot);
    }
    clear_line(slot.edit->line);
}
}  // namespace

void invoke_login(Session& slot, int)
{
    clear_line(slot.edit->line);
    slot.state = kEnteringPassword;
    Printf(slot.term, "\r\nRouter Manager Console %d.%02d%s%s\n", kMajor, kMinor, kEdition, kFamily);
    ask(slot);
}

void process_login(Session& slot, int key)
{
    LineRecord& line = slot.edit->line;
    if (key == key::kEnter || key == key::kCtrlC)
        submit(slot);
    else if (key::printable(key) && line.length >= kLongestPassword)
        refuse_long_password(slot);
    else
        line_edit(line, slot.term, key, false);
}

void new_session(Session& slot)
{
    slot.call.stage = 0;
    slot.call.parms.count = 0;
    reset_pb(*slot.edit);
    CmdPrcInq.slots[slot.term] = &slot;
}
