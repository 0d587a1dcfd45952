// What the front end asks the service for: the prompt and the time-out, and what counts when it has no answer.
#include <gtest/gtest.h>

#include "commands/service_stand_in.h"
#include "console/session.h"
#include "login/login_values.h"
#include "login/settings.h"
#include "platform/ipc_client.h"
#include "service/codes.h"
#include "service/fields/management.h"
#include "service/fields/system.h"

namespace {
struct Case {
    const char *name, *prompt, *shown;
    std::uint32_t minutes;
    unsigned seconds;
};
// clang-format off
constexpr Case kCases[] = {
    {"Short",   "AP",               "AP> ",              5,          300},
    {"Fifteen", "123456789012345",  "123456789012345> ", 60,         3600},
    {"Empty",   "",                 "> ",                0xFFFFFFFF, 0xFFFFFFFF},
    {"NoAnswer", nullptr,           "Command> ",         0,          600},
};
// clang-format on
TEST(FrontEndSettings, AreTheServicesOrTheirDefaults)
{
    for (const Case& each : kCases) {
        service_stand_in::reset([&](ComParam& record, std::string&) -> std::uint32_t {
            if (!each.prompt) return IPC_NOT_RUNNING;
            if (record::code.get(record) == code::kReadSystem) system_record::prompt.set(record, each.prompt);
            if (record::code.get(record) == code::kReadManagement)
                management_record::sessionTimeout.set(record, each.minutes);
            return 0;
        });
        set_prompts();
        set_session_timeout();
        EXPECT_STREQ(Prompt[0], each.shown) << each.name;
        EXPECT_STREQ(Prompt[kSessions - 1], each.shown) << each.name;
        EXPECT_EQ(timeout, each.seconds) << each.name;
    }
    service_stand_in::reset();
}
}  // namespace
