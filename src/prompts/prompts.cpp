#include "prompts/prompts.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "console/terminal.h"

namespace {
char promptText[kPromptTextSize];  // the last question asked
}  // namespace

int CliPromptX(const char* format, ...)
{
    std::memset(promptText, 0, sizeof promptText);
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(promptText, sizeof promptText, format, arguments);
    va_end(arguments);
    return CliPromptLast();
}

int CliPromptLast() { return prn_msg(0, promptText); }

const char* CliFormatNumber(std::uint32_t number)
{
    static char text[sizeof "-2147483648"];
    std::snprintf(text, sizeof text, "%d", static_cast<int>(number));
    return text;
}

const char* CliFormatYesNo(std::uint32_t value) { return value ? "yes" : "no"; }
