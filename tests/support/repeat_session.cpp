// Does one thing at the console's prompt a number of times, key by key as a person does, and logs out: what one of them
// costs is the difference between two runs. The service must be running.
//
//     repeat_session start|key|abandoned|completion|command COUNT
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <stdexcept>

#include "support/terminal.h"

namespace {
constexpr const char* kAbandon = "\x03";

void key(Terminal& t)
{
    t.type("a");
    t.until("a");
}

void words(Terminal& t)
{
    for (const char* each : {"s", "h"}) {
        t.type(each);
        t.until(each);
    }
}

void abandon(Terminal& t)
{
    t.type(kAbandon);
    t.until("> ");
}

struct Thing {
    const char* name;
    void (*once)(Terminal&);
};
constexpr Thing kThings[] = {
    {"key", key},
    {"abandoned", [](Terminal& t) { words(t), abandon(t); }},
    {"completion",
     [](Terminal& t) {
         words(t);
         t.type(" ");
         t.until("ow ");
         abandon(t);
     }},
    {"command",
     [](Terminal& t) {
         t.type("set system name x\n");
         t.until("System Name: x\nCommand> ");
     }},
};

void play(const char* name, int count)
{
    Terminal t;
    if (std::strcmp(name, "start") == 0) {
        t.until_password_asked();
        t.hang_up();
        t.wait_exit();
        return;
    }
    t.log_in();
    const bool inAWord = std::strcmp(name, "key") == 0;
    if (inAWord) t.type("set system name "), t.until("set system name ");
    for (const Thing& each : kThings)
        for (int i = 0; i < count && std::strcmp(name, each.name) == 0; i++) each.once(t);
    if (inAWord) abandon(t);
    t.type("logout\n");
    if (t.wait_exit() != 0) throw std::runtime_error("the console did not end as it should");
}
}  // namespace

int main(int count, char** words)
{
    if (count != 3) return 2;
    try {
        play(words[1], std::atoi(words[2]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "repeat_session: %s\n", failure.what());
        return 1;
    }
    return 0;
}
