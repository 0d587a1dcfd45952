#include "cli/keyword_rows.h"
#include "cli/table_order.h"
#include "cli/tables.h"

using namespace table_order;

namespace {
using keyword_rows::kRows;

constexpr auto kSorted = [] {
    std::array<CliKeywordRow, kRows.size()> table = kRows;
    put_in_order(before_end(table.data()), spelled_before);
    raise_min_lengths(before_end(table.data()));
    return table;
}();

constexpr std::ptrdiff_t rows_of(std::uint32_t id) { return std::ranges::count(kRows, id, &CliKeywordRow::id); }

constexpr bool every_id_has_its_rows()
{
    for (std::uint32_t id = 1; id < kKeywordEnd; ++id) {
        const bool doubled = id == number_of(Token::kwMac) || id == number_of(Token::kwRetry);
        if (rows_of(id) != (doubled ? 2 : 1)) return false;
    }
    return true;
}

constexpr bool a_text_belongs_to_one_id()
{
    for (std::size_t i = 1; i + 1 < kSorted.size(); ++i)
        if (std::string_view(kSorted[i - 1].text) == kSorted[i].text && kSorted[i - 1].id != kSorted[i].id)
            return false;
    return true;
}

static_assert(kRows.size() == 110 && kRows.back().id == kKeywordEnd && kRows.back().text == nullptr);
static_assert(every_id_has_its_rows() && rows_of(kKeywordEnd) == 1);
static_assert(a_text_belongs_to_one_id());
}  // namespace

constinit KeywordRanks table_order::keywordRanks = ranks_of({kSorted.data(), kSorted.size() - 1});

constinit std::array<CliKeywordRow, 110> gCliKeywordTable = kSorted;

void CliInitKeyword(CliKeywordRow* table, std::uint32_t* countOut)
{
    const std::span<CliKeywordRow> rows = before_end(table);
    const bool moved = put_in_order(rows, spelled_before);
    raise_min_lengths(rows);
    if (moved && table == gCliKeywordTable.data()) keywordRanks = ranks_of(rows);
    *countOut = static_cast<std::uint32_t>(rows.size()) - 1;
}

std::int32_t CliGetKeywordTableIndex(std::uint32_t id) { return id < keywordRanks.size() ? keywordRanks[id] : -1; }

const char* CliLookupKeyword(std::uint32_t id)
{
    const std::int32_t index = CliGetKeywordTableIndex(id);
    return index < 0 ? nullptr : gCliKeywordTable[static_cast<std::size_t>(index)].text;
}
