#include "report/annexure_table.h"

#include "annexure/annexure_screen.h"
#include "report/frame_reader.h"
#include "services/amount_text.h"

#include <algorithm>
#include <span>

namespace pgbp::report {
namespace {

/// What of a block stands in the fields alone: halves of the depreciation, additional depreciation, sales by halves.
std::string RestOf(const AnnexureRow& row, const AnnexureScreen& screen, std::span<const Entry> fields)
{
    std::string words;
    for (const auto& column : screen.entry.columns()) {
        const bool isWhole = column.field == &screen.TxtDep1 && row.depreciation1 == row.depreciation;
        if (column.inGrid || isWhole || column.field == &screen.CBOGRP || (!column.field && !column.tick))
            continue;
        const std::string text = column.Text(row);
        if (IsNothing(text))
            continue;
        std::string part = PlainCaption(column.tick ? screen.ChkEmpty.caption.get() : screen.Label22.text());
        for (const Entry& entry : fields)
            if (std::ranges::find(entry.shownBy, column.field) != entry.shownBy.end())
                part = entry.caption;
        if (!column.tick)
            part += ' ' + (column.IsNumber() ? GroupedAmount(text) : text);
        words += (words.empty() ? "" : "; ") + part;
    }
    return words;
}

} // namespace

Table AnnexureTable(const AnnexureScreen& screen)
{
    const Table plain = TableOf(screen.DBGrid1);
    const std::vector<Entry> fields = ReadFrame(screen.framain).front().fields;
    Table table{.title = plain.title, .columns = plain.columns};
    const auto add = [&](RowLook look, const std::string& text) {
        table.rows.push_back({.look = look, .cells = {text}});
        table.rows.back().cells.resize(table.columns.size());
    };
    std::vector<std::size_t> places; // of the plain rows
    std::string group;
    std::size_t item = 0;
    for (const Row& row : plain.rows) {
        const bool isOfItem = row.look == RowLook::Plain && item < screen.entry.items().size();
        if (isOfItem && screen.entry.items()[item].group != group)
            add(RowLook::Heading, group = screen.entry.items()[item].group);
        places.push_back(table.rows.size());
        table.rows.push_back(row);
        if (!isOfItem)
            continue;
        if (const std::string words = RestOf(screen.entry.items()[item++], screen, fields); !words.empty())
            add(RowLook::Note, words);
    }
    for (Row& row : table.rows)
        for (auto& [column, summands] : row.sums)
            for (Summand& summand : summands)
                summand.row = places[summand.row];
    return table;
}

} // namespace pgbp::report
