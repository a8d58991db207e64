#include "report/plain_text.h"

#include "services/utf8.h"

#include <algorithm>

namespace pgbp::report {
namespace {

constexpr int kWidth = 100;
constexpr int kGap = 2;
constexpr int kNarrowestText = 24;

std::string Repeated(char letter, int count)
{
    return std::string(static_cast<std::size_t>(std::max(0, count)), letter);
}

std::string AtRight(const std::string& text, int width) { return Repeated(' ', width - CharacterCount(text)) + text; }

/// The text in lines of at most this width, broken at blanks where there are some.
std::vector<std::string> Wrapped(std::string text, int width)
{
    std::vector<std::string> lines;
    while (CharacterCount(text) > width) {
        const std::size_t end = ByteOfCharacter(text, width + 1);
        const std::size_t blank = text.rfind(' ', end - 1);
        const std::size_t cut = blank == std::string::npos || blank == 0 ? ByteOfCharacter(text, width) : blank;
        lines.push_back(text.substr(0, cut));
        text.erase(0, text.find_first_not_of(' ', cut));
    }
    lines.push_back(text);
    return lines;
}

class TableText {
  public:
    explicit TableText(const Table& table) : table_(table)
    {
        for (std::size_t column = 1; column < table.columns.size(); ++column) {
            int widest = CharacterCount(table.columns[column].heading);
            for (const Row& row : table.rows)
                if (column < row.cells.size())
                    widest = std::max(widest, CharacterCount(Drawn(table.columns[column], row.cells[column])));
            widths_.push_back(widest);
            rest_ -= widest + kGap;
        }
        rest_ = std::max(rest_, kNarrowestText);
    }

    std::string Text() const
    {
        std::string text = table_.title.empty() ? "" : table_.title + '\n';
        Row headings{.look = RowLook::Heading};
        for (const Column& column : table_.columns)
            headings.cells.push_back(column.heading);
        if (std::ranges::any_of(headings.cells, [](const std::string& heading) { return !heading.empty(); }))
            text += Line(headings);
        for (const Row& row : table_.rows)
            text += Line(row);
        return text + '\n';
    }

  private:
    std::string Line(const Row& row) const
    {
        const int indent = row.look == RowLook::Item ? 4 + 2 * row.depth : 2 * row.depth;
        const int width = (row.look == RowLook::Note ? kWidth : rest_) - indent;
        const std::string remark = row.remark.empty() ? "" : " (" + row.remark + ')';
        const std::vector<std::string> lines = Wrapped(row.cells.front() + remark, width);
        std::string text;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            text += Repeated(' ', indent) + lines[i];
            if (i + 1 == lines.size())
                text += Cells(row, width - CharacterCount(lines[i]));
            text += '\n';
        }
        const bool isTotal = row.look == RowLook::Total || row.look == RowLook::Final;
        return isTotal ? Rule(row, row.look == RowLook::Final ? '=' : '-', text) : text;
    }

    std::string Cells(const Row& row, int lacking) const
    {
        std::string text = Repeated(' ', lacking);
        for (std::size_t column = 1; column < row.cells.size(); ++column) {
            const Column& its = table_.columns[column];
            const std::string cell = Drawn(its, row.cells[column]);
            const int width = widths_[column - 1];
            text += Repeated(' ', kGap) +
                    (its.IsNumber() ? AtRight(cell, width) : cell + Repeated(' ', width - CharacterCount(cell)));
        }
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    /// A rule above the amounts of a total.
    std::string Rule(const Row& row, char letter, const std::string& text) const
    {
        Row rule = row;
        std::string line = Repeated(' ', rest_);
        for (std::size_t column = 1; column < row.cells.size(); ++column)
            line += Repeated(' ', kGap) + Repeated(row.cells[column].empty() ? ' ' : letter, widths_[column - 1]);
        return line.substr(0, line.find_last_not_of(' ') + 1) + '\n' + text;
    }

    const Table& table_;
    std::vector<int> widths_; ///< of all columns but the first
    int rest_ = kWidth;       ///< of the first one
};

} // namespace

std::string PlainText(const Document& document)
{
    std::string text = document.client + "\nPAN " + document.pan + "   " + document.status + "   Assessment year " +
                       document.year + (document.incomeOf.empty() ? "" : "   " + document.incomeOf) + "\n\n";
    for (const Section& section : document.sections) {
        text += section.title + '\n' + Repeated(section.level == 1 ? '=' : '-', CharacterCount(section.title)) + "\n\n";
        for (const Table& table : section.tables)
            text += TableText(table).Text();
    }
    return text;
}

} // namespace pgbp::report
