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
