#include "commands/shell.h"

#include <cstdio>
#include <sys/wait.h>

#include "commands/child_process.h"
#include "commands/command.h"

const char* shellProgram = "/bin/sh";

namespace {
ChildEnd run_shell(const char* const* words)
{
    const ChildEnd end = run_in_front(shellProgram, words);
    if (!end.started)
        std::printf("The shell cannot be started\n");
    else if (WIFSIGNALED(end.status))
        std::printf("\nEnded by signal %d\n", WTERMSIG(end.status));
    return end;
}
}  // namespace

void CliZShell(ActionBlock&, int)
{
    std::printf("\"exit\" returns to the console\n");
    constexpr const char* kWords[] = {"sh", nullptr};
    run_shell(kWords);
}

void CliZDebugShell(ActionBlock& call, int)
{
    const char* const words[] = {"sh", "-c", text_parm(call, 0), nullptr};
    const ChildEnd end = run_shell(words);
    if (end.started && WIFEXITED(end.status) && WEXITSTATUS(end.status) != 0)
        std::printf("Exit status %d\n", WEXITSTATUS(end.status));
}
