#include "report/document.h"

#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <cctype>

namespace pgbp::report {

std::string Drawn(const Column& column, const std::string& text)
{
    return column.kind == GridColumnKind::Amount ? GroupedAmount(text) : text;
}

void FindSums(Table& table, std::size_t column, const std::vector<int>& signs)
{
    std::vector<Summand> running;
    double sum = 0;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        Row& row = table.rows[i];
        const bool isTotal = row.look == RowLook::Total || row.look == RowLook::Final;
        const std::string& text = row.cells[column];
        if (text.empty())
            continue;
        if (!isTotal) {
            if (signs[i] != 0)
                running.push_back({i, column, signs[i]});
            sum += signs[i] * ParseAmount(text);
            continue;
        }
        if (!running.empty() && Amount(sum) == Amount(ParseAmount(text)))
            row.sums[column] = running;
        running = {{i, column}};
        sum = ParseAmount(text);
    }
}

namespace {

/// The amounts of the rows from one to another that stand just so deep.
std::vector<Summand> AmountsAt(const Table& table, std::size_t column, int depth, std::size_t from, std::size_t to)
{
    std::vector<Summand> amounts;
    for (std::size_t i = from; i < to; ++i)
        if (table.rows[i].depth == depth && table.rows[i].look != RowLook::Item && !table.rows[i].cells[column].empty())
            amounts.push_back({i, column});
    return amounts;
}

bool AddUpTo(const Table& table, const std::vector<Summand>& summands, const std::string& text)
{
    double sum = 0;
    for (const Summand& summand : summands)
        sum += ParseAmount(table.rows[summand.row].cells[summand.column]);
    return !summands.empty() && Amount(sum) == Amount(ParseAmount(text));
}

} // namespace

void FindSumsOfGroups(Table& table, std::size_t column)
{
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        Row& row = table.rows[i];
        if (row.look != RowLook::Strong)
            continue;
        std::size_t end = i + 1;
        while (end < table.rows.size() && table.rows[end].depth > row.depth)
            ++end;
        std::size_t begin = i;
        while (begin > 0 && table.rows[begin - 1].depth >= row.depth)
            --begin;
        for (auto parts :
             {AmountsAt(table, column, row.depth + 1, i + 1, end), AmountsAt(table, column, row.depth, begin, i)})
            if (AddUpTo(table, parts, row.cells[column])) {
                row.sums[column] = std::move(parts);
                break;
            }
    }
}

void DropIfEmpty(Table& table, std::size_t column)
{
    if (std::ranges::any_of(table.rows, [&](const Row& row) { return !row.cells[column].empty(); }))
        return;
    table.columns.erase(table.columns.begin() + static_cast<std::ptrdiff_t>(column));
    const auto moved = [&](std::size_t its) { return its > column ? its - 1 : its; };
    for (Row& row : table.rows) {
        row.cells.erase(row.cells.begin() + static_cast<std::ptrdiff_t>(column));
        std::map<std::size_t, std::vector<Summand>> sums;
        for (auto& [its, summands] : row.sums) {
            for (Summand& summand : summands)
                summand.column = moved(summand.column);
            sums.emplace(moved(its), std::move(summands));
        }
        row.sums = std::move(sums);
    }
}

std::string PlainCaption(const std::string& caption)
{
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        const bool isMark = caption[i] == '&' && i + 1 < caption.size() && caption[i + 1] != ' ';
        if (isMark)
            ++i;
        plain += caption[i];
    }
    plain = Trim(plain);
    while (plain.ends_with(':'))
        plain = Trim(plain.substr(0, plain.size() - 1));
    return plain;
}

std::string FileName(const Document& document)
{
    std::string name = (document.pan.empty() ? document.client : document.pan) + ' ' + document.year;
    if (!document.incomeOf.empty())
        name += ' ' + document.incomeOf;
    std::ranges::replace_if(
        name,
        [](char letter) {
            return static_cast<unsigned char>(letter) < ' ' ||
                   std::string_view("/\\:*?\"<>|").find(letter) != std::string_view::npos;
        },
        '-');
    return name;
}

} // namespace pgbp::report
