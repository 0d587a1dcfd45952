// The printers that ask the questions of the staged dialogues. The last question asked is kept, so that a refused
// answer can bring exactly the same one again.
#pragma once

#include <cstdint>

#include "prompts/prompt_tables.h"

inline constexpr unsigned kPromptTextSize = 512;  // bytes of a question, NUL included; what is longer is cut

// Formats a question, keeps it and prints it. Returns the number of characters printed.
int CliPromptX(const char* format, ...) __attribute__((format(printf, 1, 2)));
int CliPromptLast();  // prints the kept question again; returns the number of characters printed

// Texts of a value, as questions show it. Each lives until the next call of the same function.
const char* CliFormatNumber(std::uint32_t number);  // as signed decimal
const char* CliFormatYesNo(std::uint32_t value);
