// The vocabulary of the console: keywords, parameter types, command rows, and what each command runs. The rows stand in
// keyword_rows.h, parm_table.cpp, command_rows.h and (on the handlers' floor) commands/dispatch_table.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "console/session.h"
#include "values/parm_list.h"

enum class Token : std::uint16_t;  // cli/token.h; one number space for keywords and parameter types

inline constexpr std::uint32_t kKeywordEnd = 108, kParmFirst = 109, kParmEnd = 154;
inline constexpr std::uint32_t kEngineeringFirst = 175, kCommandEnd = 192, kLogoutCommand = 39;

struct CliKeywordRow {
    std::uint32_t id;         // 1 to 107; kKeywordEnd in the end record
    const char* text;         // lower case; null in the end record
    std::uint32_t minLength;  // characters that tell it from its neighbours; filled by CliInitKeyword, read by nobody
};
struct CliParmRow {
    std::uint32_t id;  // 109 to 153; kParmEnd in the end record
    const char* help;  // with its angle brackets
    Parser parser;
};
struct CliCmdRow {
    std::uint32_t cmdId;
    std::array<Token, 12> tokens;  // ended by the first 0
    std::uint32_t category, featureAny, featureAll, interfaceAny, interfaceAll, modeWord;
};
static_assert(sizeof(CliCmdRow) == 13 * sizeof(std::uint32_t));
struct CliCmdDispRow {
    std::uint32_t cmdId;
    Action action;  // null: a command without an action of its own
};

// The keyword and command tables stand sorted from the beginning, with minLength filled.
extern std::array<CliKeywordRow, 110> gCliKeywordTable;
extern const std::array<CliParmRow, 41> gCliParmTable;
extern std::array<CliCmdRow, 141> gCliCmdTable;
extern const std::array<CliCmdDispRow, 170> gCliCmdDispTable;

// The rows that a line is matched with: gCliCmdTable, or a larger table where the matching itself is measured.
extern const CliCmdRow* matchedRows;
inline const CliCmdRow& command_row(std::int32_t index) { return matchedRows[index]; }

// Sorts the keyword table by text in place, up to its end record, raises minLength where it is too small, stores the
// number of records before the end record less one.
void CliInitKeyword(CliKeywordRow* table, std::uint32_t* countOut);

// Sorts the command table in place, ordinary commands before engineering ones, each block in token order; stores how
// many rows there are, how many of them are ordinary, how many engineering. Needs the sorted keyword table.
void CliInitCommand(CliCmdRow* table, std::uint32_t* totalOut, std::uint32_t* visibleOut, std::uint32_t* hiddenOut);
void CliSetCmdcount(std::uint32_t total, std::uint32_t visible, std::uint32_t hidden);
std::int32_t CliGetCmdCount();         // -1 before start-up
std::int32_t CliGetVisibleCmdCount();  // the ordinary rows; -1 before start-up

int CliCompareCmd(const CliCmdRow& a, const CliCmdRow& b);  // 1, -1, 0: by token sequence
const char* CliLookupKeyword(std::uint32_t id);             // null: no such keyword
std::int32_t CliGetKeywordTableIndex(std::uint32_t id);     // alphabetical rank of the first record; -1
const char* CliLookupParmDescription(std::uint32_t id);     // null: no such type
Parser CliGetParserFunc(std::uint32_t id);                  // null: no such type
Action CliGetActionFunc(std::uint32_t cmdId);               // null after printing why

void CliGetFeature(std::uint32_t* out);      // the device's feature bits
void CliProbeInterface(std::uint32_t* out);  // the device's interface bits
bool CliMatchFeature(std::uint32_t device, std::uint32_t any, std::uint32_t all);
bool CliMatchInterface(std::uint32_t device, std::uint32_t any, std::uint32_t all);
bool row_admitted(const CliCmdRow& row);  // both filters with this device's bits

// The token of a row at a place, as the number it is; 0 behind the row's end.
std::uint32_t token_at(const CliCmdRow& row, std::uint32_t position);
