#include "console/session.h"

#include <cstring>

Session session[kSessions];
char Prompt[kSessions][kPromptSize] = {"Command> ", "Command> ", "Command> "};
std::uint8_t promptMode[kSessions];
int SessionCnt;
unsigned timeout = 600;
CommandInquiry CmdPrcInq;

void toggle_prompt_mode(int term)
{
    constexpr char kAdvanced[] = ">> ", kExpress[] = " ";
    constexpr std::size_t kAdvancedLength = sizeof kAdvanced - 1;

    promptMode[term] = !promptMode[term];
    char* prompt = Prompt[term];
    const std::size_t length = std::strlen(prompt);
    if (promptMode[term]) {
        if (length > 0 && length - 1 + kAdvancedLength < kPromptSize)
            std::memcpy(prompt + length - 1, kAdvanced, sizeof kAdvanced);
    } else if (length >= kAdvancedLength) {
        std::memcpy(prompt + length - kAdvancedLength, kExpress, sizeof kExpress);
    }
}
