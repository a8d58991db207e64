#include "trial_balance/delimited_text.h"

#include <algorithm>
#include <csv.h>
#include <memory>

namespace pgbp::trial {
namespace {

/// What the library hands over. It is C, so nothing may be thrown through it.
struct Filling {
    Table table;
    std::vector<std::string> row;
    std::size_t cells = 0;
    bool isTooLarge = false;

    void AddCell(const char* text, std::size_t length) noexcept
    try {
        isTooLarge = isTooLarge || ++cells > kMostCells;
        if (!isTooLarge)
            row.emplace_back(text, length);
    } catch (...) {
        isTooLarge = true;
    }

    void EndRow() noexcept
    try {
        isTooLarge = isTooLarge || ++cells > kMostCells;
        while (!row.empty() && row.back().empty())
            row.pop_back();
        if (!isTooLarge)
            table.rows.push_back(std::move(row));
        row.clear();
    } catch (...) {
        isTooLarge = true;
    }
};

void OnCell(void* text, std::size_t length, void* filling)
{
    static_cast<Filling*>(filling)->AddCell(static_cast<const char*>(text), length);
}

void OnRow(int, void* filling) { static_cast<Filling*>(filling)->EndRow(); }

int IsNoBlank(unsigned char) { return 0; }

/// Some programs write a blank between the separator and the quote.
bool HasBlanksBeforeQuotes(std::string_view text, char separator)
{
    return text.find(std::string{separator, ' ', '"'}) != std::string_view::npos;
}

} // namespace

Table ParseDelimited(std::string_view text, char separator)
{
    csv_parser parser;
    if (csv_init(&parser, CSV_REPALL_NL) != 0)
        throw TrialBalanceError("The file cannot be read.");
    const std::unique_ptr<csv_parser, decltype(&csv_free)> owner(&parser, &csv_free);
    csv_set_delim(&parser, static_cast<unsigned char>(separator));
    if (!HasBlanksBeforeQuotes(text, separator))
        csv_set_space_func(&parser, IsNoBlank);
    constexpr std::size_t kPiece = 1 << 16; // so that a file of too many cells is left soon
    csv_set_blk_size(&parser, kPiece);
    Filling filling;
    const auto parse = [&](std::string_view piece) {
        if (csv_parse(&parser, piece.data(), piece.size(), OnCell, OnRow, &filling) != piece.size())
            throw TrialBalanceError("The file cannot be read.");
    };
    for (std::size_t at = 0; at < text.size() && !filling.isTooLarge; at += kPiece)
        parse(text.substr(at, kPiece));
    parse("\n"); // ends the last row, unless it is taken for a part of what stands in quotes
    const std::size_t ended = filling.table.rows.size();
    csv_fini(&parser, OnCell, OnRow, &filling);
    if (filling.isTooLarge)
        throw TrialBalanceError("The file has more than a million cells. That is no list of accounts: export the "
                                "trial balance alone, without the entries.");
    filling.table.unclosedQuote = filling.table.rows.size() > ended ? ended + 1 : 0;
    while (!filling.table.rows.empty() && filling.table.rows.back().empty())
        filling.table.rows.pop_back();
    return std::move(filling.table);
}

} // namespace pgbp::trial
