// The password step that opens every session: banner, question, and the service's verdict on what was typed.
#pragma once

#include "console/session.h"

void invoke_login(Session& slot, int key);   // shows the banner and asks; the key is not looked at
void process_login(Session& slot, int key);  // line feed and Ctrl-C alike submit what has been typed
void new_session(Session& slot);             // opens the logged-in session
