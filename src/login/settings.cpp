#include "login/settings.h"

#include <cstdio>
#include <cstring>
#include <limits>

#include "console/session.h"
#include "service/client.h"
#include "service/fields/management.h"
#include "service/fields/system.h"

namespace {
constexpr unsigned kDefaultTimeout = 600;
constexpr unsigned kSecondsPerMinute = 60;
constexpr char kDefaultPrompt[] = "Command> ", kPromptEnd[] = "> ";
constexpr std::size_t kPromptTextSize = system_record::prompt.at.width;
static_assert(sizeof Prompt[0] >= kPromptTextSize + sizeof kPromptEnd - 1);
}  // namespace

int CliGetSessionTimeout(unsigned* seconds)
{
    if (!read_record(code::kReadManagement).ok()) return 1;
    const std::uint32_t minutes = management_record::sessionTimeout.get(usrComParam);
    constexpr unsigned kMost = std::numeric_limits<unsigned>::max();
    *seconds = minutes > kMost / kSecondsPerMinute ? kMost : minutes * kSecondsPerMinute;
    return 0;
}

int CliGetSystemPrompt(char* buffer)
{
    if (!read_record(code::kReadSystem).ok()) return 1;
    std::memcpy(buffer, system_record::prompt.get(usrComParam), kPromptTextSize);
    return 0;
}

void set_session_timeout()
{
    if (CliGetSessionTimeout(&timeout) != 0) timeout = kDefaultTimeout;
}

void set_prompts()
{
    char text[kPromptTextSize];
    if (CliGetSystemPrompt(text) == 0)
        std::snprintf(Prompt[0], sizeof Prompt[0], "%s%s", text, kPromptEnd);
    else
        std::memcpy(Prompt[0], kDefaultPrompt, sizeof kDefaultPrompt);
    for (int slot = 1; slot < kSessions; ++slot) std::memcpy(Prompt[slot], Prompt[0], sizeof Prompt[0]);
}
