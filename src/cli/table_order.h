// The order of the keyword and command tables. The compiler sorts them with it, and the start goes through the same
// steps and finds nothing left to move.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "cli/token.h"

namespace table_order {
template <class Row> constexpr std::span<Row> before_end(Row* table, std::uint32_t Row::*id, std::uint32_t end)
{
    std::size_t count = 0;
    while (table[count].*id != end) ++count;
    return {table, count};
}
constexpr std::span<CliKeywordRow> before_end(CliKeywordRow* t)
{
    return before_end(t, &CliKeywordRow::id, kKeywordEnd);
}
constexpr std::span<CliCmdRow> before_end(CliCmdRow* t) { return before_end(t, &CliCmdRow::cmdId, kCommandEnd); }

// Sorts in place, without a second table. Returns whether there was anything to do.
template <class Row, class Before> constexpr bool put_in_order(std::span<Row> rows, Before before)
{
    if (std::is_sorted(rows.begin(), rows.end(), before)) return false;
    std::sort(rows.begin(), rows.end(), before);
    return true;
}

constexpr bool spelled_before(const CliKeywordRow& a, const CliKeywordRow& b)
{
    return std::string_view(a.text) < std::string_view(b.text);
}

constexpr std::uint32_t common_prefix(std::string_view a, std::string_view b)
{
    const std::size_t shorter = std::min(a.size(), b.size());
    std::uint32_t length = 0;
    while (length < shorter && a[length] == b[length]) ++length;
    return length;
}

// A keyword needs one character more than it shares with either of its neighbours.
constexpr void raise_min_lengths(std::span<CliKeywordRow> rows)
{
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const std::uint32_t needed = common_prefix(rows[i - 1].text, rows[i].text) + 1;
        for (CliKeywordRow* row : {&rows[i - 1], &rows[i]})
            if (row->minLength < needed) row->minLength = needed;
    }
}

// Position of the first row of each keyword in the sorted keyword table, by keyword id; -1: no such row.
using KeywordRanks = std::array<std::int16_t, kKeywordEnd>;

constexpr KeywordRanks ranks_of(std::span<const CliKeywordRow> rows)
{
    KeywordRanks ranks{};
    ranks.fill(-1);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (std::int16_t& rank = ranks[rows[i].id]; rank < 0) rank = static_cast<std::int16_t>(i);
    return ranks;
}

extern KeywordRanks keywordRanks;  // of gCliKeywordTable as it stands

// By token sequence: keywords in alphabetical order, before parameter types; a command before its continuations.
constexpr int compare_tokens(const CliCmdRow& a, const CliCmdRow& b, const KeywordRanks& ranks)
{
    const auto key = [&ranks](Token token) {
        const std::uint32_t id = number_of(token);
        return id < kKeywordEnd ? std::int32_t{ranks[id]} : static_cast<std::int32_t>(id);
    };
    for (std::size_t i = 0; i < a.tokens.size(); ++i) {
        if (a.tokens[i] == Token::none || b.tokens[i] == Token::none)
            return (b.tokens[i] == Token::none) - (a.tokens[i] == Token::none);
        if (const std::int32_t x = key(a.tokens[i]), y = key(b.tokens[i]); x != y) return x < y ? -1 : 1;
    }
    return 0;
}

// Ordinary commands before engineering ones, each in token order. Rows of the same words may stand either way; the id
// decides, so that the order is one.
constexpr bool row_before(const CliCmdRow& a, const CliCmdRow& b, const KeywordRanks& ranks)
{
    const bool engineeringA = a.cmdId >= kEngineeringFirst, engineeringB = b.cmdId >= kEngineeringFirst;
    if (engineeringA != engineeringB) return engineeringB;
    const int byWords = compare_tokens(a, b, ranks);
    return byWords != 0 ? byWords < 0 : a.cmdId < b.cmdId;
}
}  // namespace table_order
