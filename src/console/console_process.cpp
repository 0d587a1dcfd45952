#include "console/console_process.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <termios.h>
#include <unistd.h>

#include "cli/edit_context.h"
#include "cli/execute.h"
#include "cli/line_edit.h"
#include "cli/parse.h"
#include "cli/tables.h"
#include "commands/password.h"
#include "console/messages.h"
#include "console/password.h"
#include "console/terminal.h"
#include "prompts/engine.h"

namespace {
constexpr int kBell = 7;

// How long an escape sequence may get before what follows are keys again.
constexpr int kIntroducerReads = 10001;  // for the '['
constexpr int kFinalReads = 101;         // for the byte behind it

void reset_parse(Session& slot)
{
    if (slot.edit) reset_pb(*slot.edit);
}

void end_dialogue(Session& slot)
{
    slot.call.stage = 0;
    slot.call.parms.count = 0;
}

// No key may stop the output, and Ctrl-C is a key of the editors: none of them may become a signal.
void take_over_keys(int term)
{
    if (!isatty(STDIN_FILENO)) PrintMsg(term, kNotATerminal);
    const long disabled = fpathconf(STDIN_FILENO, _PC_VDISABLE);
    if (disabled < 0) PrintMsg(term, kNoVdisable);

    termios attributes;
    const bool known = tcgetattr(STDIN_FILENO, &attributes) == 0;
    if (!known) PrintMsg(term, kTcgetattrFailed);
    if (known) take_keys(attributes, static_cast<unsigned char>(disabled));
    if (!known || tcsetattr(STDIN_FILENO, TCSAFLUSH, &attributes) != 0) PrintMsg(term, kTcsetattrFailed);
}

// The line is gone: nothing is left to say, and only what may be done in a signal handler is.
void hang_up(int)
{
    restore_tty_info();
    _exit(EXIT_SUCCESS);
}

// Reads until a key is `wanted`, `reads` keys at most; returns the last one, EOF at the end of the input.
int read_until(int term, int reads, bool (*wanted)(int key))
{
    int key = 0;
    while (reads-- > 0) {
        key = get_char(term);
        if (key == EOF || wanted(key)) break;
    }
    return key;
}

// The rest of an escape sequence, whose Escape has been read: ESC [ x is the key -x. False at the end of the input.
bool fold_escape(int term, int& folded)
{
    if (read_until(term, kIntroducerReads, [](int key) { return key == '['; }) == EOF) return false;
    const int last = read_until(term, kFinalReads, [](int key) { return key > 0; });
    folded = -last;
    return last != EOF;
}

void dispatch(Session& slot, int key)
{
    switch (slot.state) {
    case kEnteringPassword: return process_login(slot, key);
    case kLoginNeeded: return invoke_login(slot, key);
    case kLoggedIn:
        slot.key = key;
        slot.state = kKeyPending;
        return command_process();
    default: return;
    }
}
}  // namespace

void console_init()
{
    for (int term = 0; term < kSessions; ++term) {
        init_session(session[term], term);
        promptMode[term] = 0;
    }
}

int init_session(Session& slot, int term)
{
    ++SessionCnt;
    slot.term = term;
    slot.state = kLoginNeeded;
    slot.call.stage = 0;
    if (!slot.edit) slot.edit = static_cast<EditContext*>(std::calloc(1, sizeof(EditContext)));
    if (slot.edit) {
        slot.edit->editMode = kSmartEdit;
        slot.edit->current = slot.edit->nodes;
        slot.edit->history.browse = slot.edit->history.oldest = slot.edit->history.head = 0;
        reset_pb(*slot.edit);
    } else {
        PrintMsg(term, kSessionOutOfMemory);
    }
    take_over_keys(term);
    return 1;
}

void console_process()
{
    std::uint32_t total, visible, hidden, keywords;
    CliInitKeyword(gCliKeywordTable.data(), &keywords);
    CliInitCommand(gCliCmdTable.data(), &total, &visible, &hidden);
    CliSetCmdcount(total, visible, hidden);
    std::signal(SIGHUP, hang_up);

    while (serve_key(session[0])) {
    }
    restore_tty_info();
    session[0].state = kLoginNeeded;
    std::exit(EXIT_SUCCESS);
}

bool serve_key(Session& slot)
{
    if (slot.state == kEnding || !slot.edit) return false;  // without its edit context a session can edit nothing

    const GatheredOutput gathered;
    if (slot.state == kLoginNeeded) invoke_login(slot, 0);

    int key = get_char(slot.term);
    if (key == EOF) return false;
    if (key == 0) return true;
    alarm(timeout);

    if (key == key::kCtrlC) {
        prn_msg(slot.term, "^C");
        if (slot.state != kEnteringPassword && slot.state != kLoginNeeded) {
            abort_cmd(slot);
            return true;
        }
    }
    if (key == key::kEscape) {
        if (!fold_escape(slot.term, key)) return false;
    }
    dispatch(slot, static_cast<signed char>(key));
    return true;
}

void command_process()
{
    for (Word& word : CmdPrcInq.words) word = 0;
    for (Session* slot : CmdPrcInq.slots) {
        if (!slot || slot->state != kKeyPending) continue;
        slot->state = kLoggedIn;
        if (slot->call.stage)
            process_staged_input(*slot);
        else
            process_cmd_input(*slot);
    }
}

void abort_cmd(Session& slot)
{
    prn_msg(slot.term, "\a\n");
    prn_msg(slot.term, Prompt[slot.term]);
    reset_parse(slot);
    slot.state = kLoggedIn;
    end_dialogue(slot);
    forget_passwords();
}

void logout(Session& slot)
{
    put_char(slot.term, kBell);
    PrintMsg(slot.term, kLoggedOut);
    reset_parse(slot);
    slot.state = kEnding;
    slot.call.stage = 0;
    CmdPrcInq.slots[slot.term] = nullptr;
}

void stop_login(Session& slot)
{
    put_char(slot.term, kBell);
    PrintMsg(slot.term, kLoginTimeExpired);
    slot.state = kLoginNeeded;
}

void EndSession(int n)
{
    if (session[n].state == kEnteringPassword)
        stop_login(session[n]);
    else
        session[n].state = kEnding;
}

std::int32_t TakeKey(int n)
{
    session[n].state = kLoggedIn;
    return session[n].key;
}

void RestartLogin(int n)
{
    reset_parse(session[n]);
    session[n].state = kEnteringPassword;
    end_dialogue(session[n]);
}
