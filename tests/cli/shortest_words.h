// What an operator has to type of a command at least: of each keyword the beginning that no other keyword of the same
// place has, among the commands that begin with the same words.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "cli/command_rows.h"
#include "cli/keyword_rows.h"

constexpr bool is_word(Token token) { return token != Token::none && token < Token::kwEnd; }

inline std::string keyword_text(Token token)
{
    return std::ranges::find(keyword_rows::kRows, static_cast<std::uint32_t>(token), &CliKeywordRow::id)->text;
}

inline std::string shortest_word(const CliCmdRow& row, std::size_t place)
{
    const std::string whole = keyword_text(row.tokens[place]);
    std::size_t length = 1;
    for (const CliCmdRow& other : command_rows::kRows) {
        const bool sameSoFar = std::equal(row.tokens.begin(), row.tokens.begin() + place, other.tokens.begin());
        if (!sameSoFar || !is_word(other.tokens[place]) || other.tokens[place] == row.tokens[place]) continue;
        const std::string rival = keyword_text(other.tokens[place]);
        const auto differ = std::ranges::mismatch(whole, rival).in1 - whole.begin();
        length = std::max(length, static_cast<std::size_t>(differ) + 1);
    }
    return whole.substr(0, length);
}
