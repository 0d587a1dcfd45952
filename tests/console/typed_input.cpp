#include "console/typed_input.h"

#include <unistd.h>

#include "cli/execute.h"
#include "console/console_process.h"
#include "console/password.h"
#include "console/terminal_keys.h"
#include "prompts/engine.h"

std::vector<Reached> reached;

// Linked in place of the command line and the dialogue engine.
void process_cmd_input(Session& slot) { reached.push_back({slot.key, false}); }
void process_staged_input(Session& slot) { reached.push_back({slot.key, true}); }

void TypedInput::SetUp()
{
    input_ = dup(STDIN_FILENO);
    type("");
    testing::internal::CaptureStdout();
    init_session(slot, 0);
    testing::internal::GetCapturedStdout();
    new_session(slot);
    slot.state = kLoggedIn;
    reached.clear();
}

void TypedInput::TearDown()
{
    alarm(0);
    dup2(input_, STDIN_FILENO);
    close(input_);
}

void TypedInput::type(std::string_view keys)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    close(ends[1]);
    dup2(ends[0], STDIN_FILENO);
    close(ends[0]);
    forget_keys();
}

std::string TypedInput::serve()
{
    testing::internal::CaptureStdout();
    passes = 0;
    while (serve_key(slot)) ++passes;
    return testing::internal::GetCapturedStdout();
}
