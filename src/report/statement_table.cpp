#include "report/statement_table.h"

#include "controls/grid.h"
#include "report/doors.h"
#include "report/frame_reader.h"
#include "services/format.h"
#include "services/text.h"
#include "statements/template_row.h"
#include "statements/template_store.h"

#include <utility>

namespace pgbp::report {
namespace {

/// A filled line of the statement, and its row in the table.
struct Detailed {
    int line;
    std::size_t row;
};

/// Puts the details of the line behind its row.
void AddDetails(Screen& screen, Grid& lines, const Detailed& detailed, Table& table)
{
    lines.EnterCell(detailed.line, kAmount);
    const auto opened = Press(screen, "CmdMulEntry");
    if (!opened)
        return;
    const Frame* frame = opened->card ? opened->card : MainFrameOf(*opened->screen);
    std::vector<Row> rows;
    for (const auto& [text, amount] : ItemsOf(*ReadFrame(*frame).front().grids.front()))
        rows.push_back({.look = RowLook::Item, .depth = table.rows[detailed.row].depth, .cells = {text, amount, ""}});
    table.rows.insert(table.rows.begin() + static_cast<std::ptrdiff_t>(detailed.row) + 1, rows.begin(), rows.end());
    Leave(*opened);
}

} // namespace

Table StatementTable(Screen& screen)
{
    auto& lines = dynamic_cast<Grid&>(*screen.Find("MSH"));
    Table table{.columns = {{"Particulars"}, {"", GridColumnKind::Amount}, {"Rupees", GridColumnKind::Amount}}};
    std::vector<Detailed> detailed;
    std::vector<std::pair<std::size_t, std::string>> headings; // with their indents, the widest first
    for (int line = 1; line <= lines.Rows(); ++line) {
        if (lines.IsHidden(line))
            continue;
        const std::string& description = lines.Cell(line, kDescription);
        const std::size_t indent = description.find_first_not_of(' ');
        if (indent == std::string::npos)
            continue;
        const std::string serial = Trim(lines.Cell(line, kSerial));
        const std::string caption = (serial.empty() ? "" : serial + "  ") + description.substr(indent);
        const std::string& amount = lines.Cell(line, kAmount);
        // the preparer's own words do not tell how deep the line stands
        const bool isOwn = lines.Look(line, kDescription) == CellLook::Own;
        while (!isOwn && !headings.empty() && headings.back().first >= indent)
            headings.pop_back();
        const bool isClosed = lines.Look(line, kAmount) == CellLook::Computed;
        if (IsNothing(amount)) {
            if (isClosed && Trim(amount).empty())
                headings.emplace_back(indent, caption);
            continue;
        }
        int depth = 0;
        for (auto& [its, heading] : headings) {
            if (!heading.empty())
                table.rows.push_back(
                    {.look = RowLook::Heading, .depth = depth, .cells = {std::exchange(heading, ""), "", ""}});
            ++depth;
        }
        table.rows.push_back(
            {.look = isClosed ? RowLook::Strong : RowLook::Plain, .depth = depth, .cells = {caption, "", amount}});
        if (isClosed) // a sum above its parts heads them
            headings.emplace_back(indent, "");
        if (lines.Cell(line, kDetail) == kDetailsFilled || Val(lines.Cell(line, kSlno)) == kBadDebtsWithoutPan)
            detailed.push_back({line, table.rows.size() - 1});
    }
    if (table.rows.empty())
        return table;
    // when all lines were read: leaving the details sets the amount of their line; from the last one upwards
    for (auto each = detailed.rbegin(); each != detailed.rend(); ++each)
        AddDetails(screen, lines, *each, table);
    DropIfEmpty(table, 1);
    FindSumsOfGroups(table, table.columns.size() - 1);
    return table;
}

} // namespace pgbp::report
