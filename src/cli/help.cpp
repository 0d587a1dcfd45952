#include "cli/help.h"

#include <cstring>

#include "cli/tables.h"
#include "cli/text_line.h"
#include "cli/token.h"

namespace {
constexpr std::size_t kColumn = 15, kWideColumn = 30;
constexpr std::size_t kFull = 75;     // from here on the next item goes on a new line
constexpr std::size_t kTooWide = 76;  // an item that would reach this goes on a new line itself

// The listing as it grows, a line at a time. It begins with a new line of the screen.
struct Listing {
    int term;
    TextLine line;
    std::size_t column = 0;

    explicit Listing(int terminal) : term(terminal) { line.add("\n"); }

    void break_line()
    {
        line.add("\n");
        line.write(term);
        column = 0;
    }
    void add(const char* text, std::size_t width)
    {
        line.add(text, width);
        column += width;
    }
    void end_item()
    {
        if (column >= kFull) break_line();
    }
};

void list_matching_keyword(Listing& listing, const char* keyword)
{
    const std::size_t width = std::strlen(keyword) < kColumn ? kColumn : kWideColumn;
    if (width == kWideColumn && listing.column + width >= kTooWide) listing.break_line();
    listing.add(keyword, width);
    listing.end_item();
}

void list_parameter(Listing& listing, const char* text)
{
    const std::size_t length = std::strlen(text);
    if (listing.column + length >= kTooWide) listing.break_line();
    const std::size_t end = (listing.column + length + kColumn - 1) / kColumn * kColumn;
    listing.add(text, end - listing.column);
    listing.end_item();
}

// The keywords that the typed part of a word begins.
bool list_completions(const ParseNode& node, Listing& listing)
{
    std::uint32_t listed = 0;
    for (std::int32_t i = node.low; i <= node.high; ++i) {
        const CliCmdRow& row = command_row(i);
        const std::uint32_t token = token_at(row, node.position);
        if (!is_keyword(token) || token == listed || !row_admitted(row)) continue;
        const char* keyword = CliLookupKeyword(token);
        if (strnicmp(keyword, node.word, node.wordLength) != 0) continue;
        list_matching_keyword(listing, keyword);
        listed = token;
    }
    return listed != 0;
}

// Everything that may come. The first words leave the engineering commands out.
void list_all(const ParseNode& node, Listing& listing)
{
    const std::int32_t high = node.position == 0 ? CliGetVisibleCmdCount() - 1 : node.high;
    std::uint32_t listed = 0;
    for (std::int32_t i = node.low; i <= high; ++i) {
        const CliCmdRow& row = command_row(i);
        const std::uint32_t token = token_at(row, node.position);
        if (token == 0 || token == listed || !row_admitted(row)) continue;
        if (is_keyword(token)) {
            listing.add(CliLookupKeyword(token), kColumn);
            listing.end_item();
        } else {
            list_parameter(listing, CliLookupParmDescription(token));
        }
        listed = token;
    }
}
}  // namespace

bool help(const EditContext& edit, int term)
{
    const ParseNode& node = *edit.current;
    Listing listing(term);
    bool listed = true;
    if (node.wordLength > 0)
        listed = list_completions(node, listing);
    else
        list_all(node, listing);
    listing.line.write(term);
    return listed;
}
