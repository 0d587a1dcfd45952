#include <cstring>

#include "commands/command_session.h"
#include "commands/handlers.h"
#include "platform/ipc_client.h"

namespace {
constexpr char kNotRunning[] = "\aThe configuration service is not running\n";
constexpr char kNoReason[] = "\aThe request failed, no reason was given\n";

class Persistence : public CommandSession {
protected:
    // What an earlier command has left: none of it goes out again.
    Persistence() { std::memset(&usrComParam, 0x5A, sizeof usrComParam); }
};

TEST_F(Persistence, ClearThenRestart)
{
    refused[code::kClearConfiguration] = kStatusStorageReadOnly;  // the status words are not looked at
    refused[code::kRestart] = kStatusNotPermitted;
    run(CliClearConfig);
    EXPECT_EQ(answer("Yes"), "\nRebooting...\n");
    EXPECT_EQ(codes(), (Codes{code::kClearConfiguration, code::kRestart}));
    for (const std::uint16_t code : codes()) EXPECT_TRUE(was_sent(request_of(code))) << code;

    exchangeFails[code::kClearConfiguration] = IPC_NOT_RUNNING;
    run(CliClearConfig);
    EXPECT_EQ(answer("y"), kNotRunning);
    EXPECT_EQ(sent(code::kRestart), 1u) << "no restart when the configuration could not be asked to be cleared";
}

TEST_F(Persistence, RestartReportsTheStatusWord)
{
    run(CliRestSystem);
    EXPECT_EQ(answer("y"), "reboot...\r\n");
    exchangeFails[code::kRestart] = IPC_NOT_RUNNING;
    run(CliRestSystem);
    EXPECT_EQ(answer("y"), std::string("reboot...\r\n") + kNoReason) << "the status word, though the exchange failed";
}
}  // namespace
