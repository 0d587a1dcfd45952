#include "cli/help_topic.h"

#include <array>
#include <cstdio>

#include "cli/tables.h"
#include "cli/text_line.h"
#include "cli/token.h"
#include "console/messages.h"
#include "prompts/prompts.h"
#include "values/scanners.h"

namespace {
enum Stage : std::uint32_t { kOver = 0, kNextPage = kAnyKeyStage, kSelect = 2 };

constexpr int kPageLines = 22;
constexpr int kCategoriesInLine = 3;
constexpr std::size_t kSelectionQuestion = 37;  // in idsPrompt

struct Category {
    std::uint32_t bit;  // number of the bit in a row's category word
    const char* name;
};
constexpr Category kCategories[] = {
    {0, "System"}, {1, "IP"},          {2, "Port"},     {3, "Bridging"}, {4, "Filtering"},   {5, "DHCP Server"},
    {6, "SNMP"},   {7, "Diagnostics"}, {8, "Security"}, {9, "Wireless"}, {10, "Statistics"},
};

// What one help dialogue keeps from one answer to the next.
struct {
    std::array<std::uint32_t, std::size(kCategories)> listed;  // their bits, in the order shown
    int count;                                                 // of the categories shown
    std::uint32_t selected;                                    // its bit
    std::int32_t nextRow;                                      // where the next page begins
} dialogue;

bool in_category(const CliCmdRow& row, std::uint32_t bit) { return row.category >> bit & 1 && row_admitted(row); }

bool has_commands(const Category& category)
{
    for (std::int32_t i = 0; i < CliGetVisibleCmdCount(); ++i)
        if (in_category(command_row(i), category.bit)) return true;
    return false;
}

void ask_selection() { CliPromptX(idsPrompt[kSelectionQuestion], dialogue.count); }

void print_syntax(const CliCmdRow& row, int term)
{
    TextLine line;
    line.add("   ");
    for (std::uint32_t i = 0; const std::uint32_t token = token_at(row, i); ++i) {
        line.add(" ");
        line.add(is_keyword(token) ? CliLookupKeyword(token) : CliLookupParmDescription(token));
    }
    line.add("\n");
    line.write(term);
}

void list_page(ActionBlock& call, int term)
{
    const std::int32_t rows = CliGetVisibleCmdCount();
    int lines = 0;
    for (std::int32_t i = dialogue.nextRow; i < rows; ++i) {
        if (!in_category(command_row(i), dialogue.selected)) continue;
        print_syntax(command_row(i), term);
        if (++lines == kPageLines && i < rows - 1) {
            dialogue.nextRow = i + 1;
            call.stage = kNextPage;
            PrintMsg(term, kPressAnyKey);
            return;
        }
    }
    call.stage = kSelect;
    ask_selection();
}

void list_selected(const char* answer, ActionBlock& call, int term)
{
    std::uint32_t selection = 0;
    if (!parse_dec(&answer, &selection, '\0', static_cast<std::uint32_t>(dialogue.count), 1)) {
        PrintMsg(term, kNoTopicHelp);
        ask_selection();
        return;
    }
    put_char(term, '\n');
    dialogue.selected = dialogue.listed[selection - 1];
    dialogue.nextRow = 0;
    list_page(call, term);
}

void take_answer(ActionBlock& call, int term)
{
    const char* answer = reinterpret_cast<const char*>(call.parms.value[call.parms.count]);
    if (*answer == '\0')
        call.stage = kOver;
    else if (answer[0] == '?' && answer[1] == '\0')
        CliListCategories(term);
    else
        list_selected(answer, call, term);
}
}  // namespace

int CliListCategories(int term)
{
    TextLine line;
    line.add("Commands are categorized as follows:\n");
    dialogue.count = 0;
    for (const Category& category : kCategories) {
        if (!has_commands(category)) continue;
        if (dialogue.count % kCategoriesInLine == 0) {
            line.add("\n");
            line.write(term);
            line.add("  ");
        }
        dialogue.listed[static_cast<std::size_t>(dialogue.count++)] = category.bit;
        char number[sizeof "(11)"], entry[32];
        std::snprintf(number, sizeof number, "(%d)", dialogue.count);
        std::snprintf(entry, sizeof entry, "%4s %-18s", number, category.name);
        line.add(entry);
    }
    line.add("\n");
    line.write(term);
    ask_selection();
    return dialogue.count;
}

void help_topic(ActionBlock& call, int term)
{
    switch (call.stage) {
    case kOver:
        CliListCategories(term);
        call.stage = kSelect;
        break;
    case kNextPage: list_page(call, term); break;
    case kSelect: take_answer(call, term); break;
    default:  // a stage that this dialogue never sets
        PrintMsg(term, kCliError);
        call.stage = kOver;
    }
}
