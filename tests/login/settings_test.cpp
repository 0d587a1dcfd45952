// What the front end makes of the service's answers; the IPC client library is replaced by the next answer.
#include <cstring>
#include <gtest/gtest.h>

#include "console/session.h"
#include "login/settings.h"
#include "platform/ipc_client.h"
#include "service/client.h"
#include "service/fields/management.h"
#include "service/fields/system.h"

namespace {
ComParam nextAnswer;
std::uint32_t nextResult;
}  // namespace

uint32_t IPCServiceClient(const void*, void** response)
{
    *response = nextResult ? nullptr : &nextAnswer;
    return nextResult;
}
uint32_t IPCServiceDone(void*) { return 0; }
size_t IPCResponseSize(void) { return kRecordSize; }

namespace {
class Settings : public testing::Test {
protected:
    void SetUp() override
    {
        nextAnswer = {};
        nextResult = IPC_OK;
    }
};

TEST_F(Settings, TimeoutIsGivenInMinutes)
{
    management_record::sessionTimeout.set(nextAnswer, 5);
    unsigned seconds = 1;
    EXPECT_EQ(CliGetSessionTimeout(&seconds), 0);
    EXPECT_EQ(seconds, 300u);

    management_record::sessionTimeout.set(nextAnswer, 0xFFFFFFFF);
    EXPECT_EQ(CliGetSessionTimeout(&seconds), 0);
    EXPECT_EQ(seconds, 0xFFFFFFFF) << "no wrap to a short time";
}

TEST_F(Settings, FailureLeavesTheValuesAlone)
{
    unsigned seconds = 42;
    char text[16] = "kept";
    record::status.set(nextAnswer, kStatusUnknownOperation);
    EXPECT_EQ(CliGetSessionTimeout(&seconds), 1);
    EXPECT_NE(CliGetSystemPrompt(text), 0);
    nextResult = IPC_NOT_RUNNING;
    EXPECT_EQ(CliGetSessionTimeout(&seconds), 1);
    EXPECT_NE(CliGetSystemPrompt(text), 0);
    EXPECT_EQ(seconds, 42u);
    EXPECT_STREQ(text, "kept");
}

TEST_F(Settings, WithoutTheServiceHoldTheDefaults)
{
    nextResult = IPC_NO_ANSWER;
    timeout = 1;
    std::memset(Prompt, 'x', sizeof Prompt);
    set_session_timeout();
    set_prompts();
    EXPECT_EQ(timeout, 600u);
    for (const auto& prompt : Prompt) EXPECT_STREQ(prompt, "Command> ");
}

TEST_F(Settings, PromptIsTheTextAndItsEnd)
{
    system_record::prompt.set(nextAnswer, "lab-ap");
    set_prompts();
    for (const auto& prompt : Prompt) EXPECT_STREQ(prompt, "lab-ap> ");

    std::memset(nextAnswer.bytes + record::kPayload, 'p', record::kPayloadEnd - record::kPayload);
    set_prompts();
    for (const auto& prompt : Prompt) EXPECT_STREQ(prompt, "ppppppppppppppp> ") << "cut to 15 characters";
}
}  // namespace
