// Plays a short session with the real programs on a terminal line of its own and prints the screen: what script/run
// shows where it has no terminal. The service must be running.
#include <cstdio>
#include <exception>

#include "support/terminal.h"

namespace {
void play(Terminal& t)
{
    t.log_in();
    t.type("sh ");  // completed on the line
    t.until("show ");
    t.type("system\n");
    t.until("Command> ");
    t.type("set system name lab-ap\n");
    t.until("System Name: lab-ap\nCommand> ");
    t.type("save config\n");
    t.until("Command> ");
    t.type("logout\n");
    if (t.wait_exit() != 0) throw std::runtime_error("the console did not end as it should");
}
}  // namespace

int main()
{
    Terminal t({.columns = 100});
    try {
        play(t);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "play_session: %s\n", failure.what());
        return 1;
    }
    std::puts(t.screen().text().c_str());
    return 0;
}
