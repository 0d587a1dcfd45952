// A console in normal mode, logged in from the start: what a console is once it had no memory left for smart mode.
#include "cli/edit_context.h"
#include "console/console_process.h"
#include "console/password.h"
#include "console/terminal.h"

int main()
{
    console_init();
    new_session(session[0]);
    session[0].state = kLoggedIn;
    session[0].edit->editMode = kNormalEdit;
    echo_off(stdin);
    set_keypress(stdin);
    prn_msg(session[0].term, Prompt[0]);
    console_process();
}
