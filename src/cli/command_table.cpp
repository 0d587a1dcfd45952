#include "cli/command_rows.h"
#include "cli/keyword_rows.h"
#include "cli/table_order.h"
#include "cli/tables.h"

using namespace table_order;

namespace {
using command_rows::kRows;

constexpr auto kSorted = [] {
    std::array<CliKeywordRow, keyword_rows::kRows.size()> keywords = keyword_rows::kRows;
    put_in_order(before_end(keywords.data()), spelled_before);
    const KeywordRanks ranks = ranks_of(before_end(keywords.data()));

    std::array<CliCmdRow, kRows.size()> table = kRows;
    put_in_order(before_end(table.data()),
                 [&ranks](const CliCmdRow& a, const CliCmdRow& b) { return row_before(a, b, ranks); });
    return table;
}();

// What the table is known to hold. A lost line or a mistyped word does not compile.
constexpr std::ptrdiff_t length(const CliCmdRow& r)
{
    return std::ranges::find(r.tokens, Token::none) - r.tokens.begin();
}

constexpr bool known(Token t) { return is_keyword(number_of(t)) || is_parameter(number_of(t)); }

// A command begins with a keyword, and nothing stands behind its end.
constexpr bool well_formed(const CliCmdRow& r)
{
    const auto end = std::ranges::find(r.tokens, Token::none);
    const bool ends = std::all_of(end, r.tokens.end(), [](Token t) { return t == Token::none; });
    if (r.cmdId == kCommandEnd) return ends && length(r) == 0;
    return ends && std::all_of(r.tokens.begin(), end, known) && is_keyword(number_of(r.tokens[0]));
}

constexpr bool stands_as_often_as_it_should(const CliCmdRow& r)
{
    const bool twice = r.cmdId == 181 || r.cmdId == 182 || r.cmdId == 186 || r.cmdId == 188;
    return std::ranges::count(kRows, r.cmdId, &CliCmdRow::cmdId) == (twice ? 2 : 1);
}

constexpr std::ptrdiff_t rows_between(std::uint32_t first, std::uint32_t end)
{
    return std::ranges::count_if(kRows, [=](const CliCmdRow& r) { return r.cmdId >= first && r.cmdId < end; });
}

constexpr bool the_words_tell_the_command()
{
    for (std::size_t i = 1; i + 1 < kSorted.size(); ++i)
        if (kSorted[i - 1].tokens == kSorted[i].tokens && kSorted[i - 1].cmdId != kSorted[i].cmdId) return false;
    return true;
}

constexpr std::ptrdiff_t mode_words(std::uint32_t word)
{
    return std::ranges::count(kRows, word, &CliCmdRow::modeWord);
}

static_assert(kRows.size() == 141 && kRows.back().cmdId == kCommandEnd, "140 commands, the end row last");
static_assert(rows_between(1, kEngineeringFirst) == 120 && rows_between(kEngineeringFirst, kCommandEnd) == 20);
static_assert(std::ranges::all_of(kRows, well_formed));
static_assert(std::ranges::all_of(kRows, stands_as_often_as_it_should));
static_assert(the_words_tell_the_command());
static_assert(length(*std::ranges::max_element(kRows, {}, length)) == 7);
static_assert(mode_words(command_rows::kTopBit) == 86 && mode_words(command_rows::kAllBits) == 50);
static_assert(mode_words(command_rows::kTopBit | 1) == 1 && mode_words(0) == 4, "0: three commands and the end row");

struct Counts {
    std::uint32_t total, visible, hidden;
};
constinit Counts counts{};

std::int32_t known_count(std::uint32_t count) { return count == 0 ? -1 : static_cast<std::int32_t>(count); }
}  // namespace

constinit std::array<CliCmdRow, 141> gCliCmdTable = kSorted;
constinit const CliCmdRow* matchedRows = gCliCmdTable.data();

void CliInitCommand(CliCmdRow* table, std::uint32_t* totalOut, std::uint32_t* visibleOut, std::uint32_t* hiddenOut)
{
    const std::span<CliCmdRow> rows = before_end(table);
    put_in_order(rows, [](const CliCmdRow& a, const CliCmdRow& b) { return row_before(a, b, keywordRanks); });

    const auto engineering =
        std::ranges::count_if(rows, [](const CliCmdRow& r) { return r.cmdId >= kEngineeringFirst; });
    *totalOut = static_cast<std::uint32_t>(rows.size());
    *hiddenOut = static_cast<std::uint32_t>(engineering);
    *visibleOut = *totalOut - *hiddenOut;
}

void CliSetCmdcount(std::uint32_t total, std::uint32_t visible, std::uint32_t hidden)
{
    counts = {total, visible, hidden};
}
std::int32_t CliGetCmdCount() { return known_count(counts.total); }
std::int32_t CliGetVisibleCmdCount() { return known_count(counts.visible); }

int CliCompareCmd(const CliCmdRow& a, const CliCmdRow& b) { return compare_tokens(a, b, keywordRanks); }

std::uint32_t token_at(const CliCmdRow& row, std::uint32_t position)
{
    return position < row.tokens.size() ? number_of(row.tokens[position]) : 0;
}
