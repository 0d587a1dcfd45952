// The generated half of the operator's guide: what the programs' tables say. Texts that come from a table stand in the
// guide as they stand on the screen.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The commands.
std::vector<unsigned> command_numbers();                        // each once, in the order of the command table
std::vector<std::string> spellings(unsigned command);           // one a row, with the parameters
std::string keywords(unsigned command);                         // the words without the parameters
std::vector<std::string> shortest_spellings(unsigned command);  // every keyword as short as it may be
std::string why_not_carried_out(unsigned command);              // empty: it has an action

// The parameter types that commands have, and what their parsers say to a text: 0, or the message that refuses it.
std::vector<unsigned> parameter_numbers();
std::string parameter_help(unsigned type);
unsigned parameter_refusal(unsigned type, const std::string& text, std::string& refusal);

// A question of a dialogue, with three dots, or N for a number, in the place of the value shown. Empty: there is none.
std::string question(const std::string& table, unsigned index);

// A text of the message catalogue; empty: no such number. Service texts by status and message group.
std::string message(unsigned number);
std::string message_row(unsigned number);  // of a table: number, severity, text
std::string service_text(std::uint32_t status, std::uint32_t group);

// Whole tables in Markdown.
std::string service_text_table();
std::string settings_table();
std::string facility_list();
std::string zone_list();
