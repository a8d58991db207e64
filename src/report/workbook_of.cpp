#include "report/workbook_of.h"

#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"

#include <algorithm>

namespace pgbp::report {
namespace {

constexpr const char* kPaise = "[>=10000000]##\\,##\\,##\\,##0.00;[>=100000]##\\,##\\,##0.00;#,##0.00";
constexpr const char* kRupees = "[>=10000000]##\\,##\\,##\\,##0;[>=100000]##\\,##\\,##0;#,##0";
constexpr xls::Colour kShade{0xE6, 0xEF, 0xFB};
constexpr int kLongestName = 31;
constexpr double kWidestColumn = 70;
constexpr int kStep = 4; ///< blanks by which a text is set in

/// "Normal Business- Asha Sarees 2": what a sheet may be called, and no other one is.
std::string SheetName(const std::string& title, const std::vector<xls::Sheet>& others)
{
    std::string plain = title;
    for (char& letter : plain)
        if (std::string_view("[]:*?/\\'").find(letter) != std::string_view::npos)
            letter = ' ';
    for (int number = 1;; ++number) {
        const std::string tail = number == 1 ? "" : ' ' + std::to_string(number);
        const std::string name =
            Trim(plain.substr(0, ByteOfCharacter(plain, kLongestName - CharacterCount(tail)))) + tail;
        if (std::ranges::none_of(others, [&](const xls::Sheet& other) { return EqualsIgnoringCase(other.name, name); }))
            return name;
    }
}

bool IsStrong(const Row& row)
{
    return row.look == RowLook::Total || row.look == RowLook::Final || row.look == RowLook::Heading ||
           row.look == RowLook::Strong;
}

/// Sets a section down on a sheet, row by row.
class SheetMaker {
  public:
    SheetMaker(const Document& document, const Section& section, std::string name)
    {
        sheet_.name = std::move(name);
        Put(0, document.client, {.bold = true, .fontSize = 14});
        ++row_;
        Put(0,
            "PAN " + document.pan + ", " + document.status + ", assessment year " + document.year +
                (document.incomeOf.empty() ? "" : ", " + document.incomeOf),
            {});
        row_ += 2;
        Put(0, section.title, {.bold = true, .fontSize = 12});
        ++row_;
        for (const Table& table : section.tables)
            Set(table);
        for (const auto& [column, width] : widths_)
            sheet_.columns[column] = {.width = std::min(kWidestColumn, width + 2.0)};
    }

    xls::Sheet Take() { return std::move(sheet_); }

  private:
    void Set(const Table& table)
    {
        ++row_;
        if (!table.title.empty()) {
            Put(0, table.title, {.bold = true});
            ++row_;
        }
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            Put(static_cast<int>(column), table.columns[column].heading, {.bold = true, .fill = kShade});
        ++row_;
        const int first = row_;
        for (const Row& row : table.rows) {
            for (std::size_t column = 0; column < row.cells.size(); ++column)
                Set(table.columns[column], row, static_cast<int>(column), first);
            if (!row.remark.empty())
                Put(static_cast<int>(table.columns.size()), row.remark, {});
            ++row_;
        }
    }

    void Set(const Column& its, const Row& row, int column, int first)
    {
        const std::string& text = row.cells[static_cast<std::size_t>(column)];
        const auto sum = row.sums.find(static_cast<std::size_t>(column));
        const bool isNumber = its.IsNumber() && text.find_first_of("0123456789") != std::string::npos;
        if (!isNumber) {
            const int indent = column == 0 ? kStep * (row.depth + (row.look == RowLook::Item ? 1 : 0)) : 0;
            return Put(column, std::string(static_cast<std::size_t>(indent), ' ') + text, {.bold = IsStrong(row)});
        }
        const bool hasPaise = text.find('.') != std::string::npos;
        xls::Cell& cell = sheet_.cells[{row_, column}];
        cell.style = {.bold = IsStrong(row), .numberFormat = hasPaise ? kPaise : kRupees};
        if (sum == row.sums.end())
            cell.value = ParseAmount(text);
        else
            cell.formula = FormulaOf(sum->second, first);
        Widen(column, Drawn(its, text));
    }

    static std::string CellOf(const Summand& summand, int first)
    {
        return xls::NameOf({first + static_cast<int>(summand.row), static_cast<int>(summand.column)});
    }

    /// Cells one below the other as a range, others one by one.
    static std::string FormulaOf(const std::vector<Summand>& summands, int first)
    {
        const bool isRange = summands.size() > 1 && std::ranges::all_of(summands, [&](const Summand& summand) {
                                 const auto at = static_cast<std::size_t>(&summand - summands.data());
                                 return summand.sign == 1 && summand.column == summands.front().column &&
                                        summand.row == summands.front().row + at;
                             });
        if (isRange)
            return "=SUM(" + CellOf(summands.front(), first) + ':' + CellOf(summands.back(), first) + ')';
        std::string formula = "=";
        for (const Summand& summand : summands) {
            if (summand.sign < 0)
                formula += '-';
            else if (formula.size() > 1)
                formula += '+';
            formula += CellOf(summand, first);
        }
        return formula;
    }

    void Put(int column, const std::string& text, const xls::Style& style)
    {
        if (text.empty() && !style.fill)
            return;
        sheet_.cells[{row_, column}] = {.value = text.empty() ? xls::Value() : xls::Value(text), .style = style};
        if (column > 0 || style.fontSize == xls::Style().fontSize)
            Widen(column, text);
    }

    void Widen(int column, const std::string& text)
    {
        double& width = widths_[column];
        width = std::max(width, static_cast<double>(CharacterCount(text)));
    }

    xls::Sheet sheet_;
    std::map<int, double> widths_;
    int row_ = 0;
};

} // namespace

xls::Workbook WorkbookOf(const Document& document)
{
    xls::Workbook workbook;
    for (const Section& section : document.sections)
        workbook.sheets.push_back(SheetMaker(document, section, SheetName(section.title, workbook.sheets)).Take());
    return workbook;
}

} // namespace pgbp::report
