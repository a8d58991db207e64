#pragma once

#include "controls/grid.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// The computation of a client as it lies on his table: what pages, a workbook and a plain text are drawn from.
namespace pgbp::report {

/// A column of a table. The first one takes the width that the others leave.
struct Column {
    std::string heading{};
    GridColumnKind kind = GridColumnKind::Text;
    bool muted = false; ///< figures to compare with

    bool IsNumber() const { return kind == GridColumnKind::Amount || kind == GridColumnKind::Rate; }
};

enum class RowLook {
    Plain,
    Item,    ///< of a list behind the row before it: indented
    Heading, ///< of the rows below it
    Note,    ///< a sentence over the whole width
    Strong,  ///< an amount that sums up others without standing below them
    Total,
    Final
};

/// An amount that goes into a sum: a cell of the same table, with its sign.
struct Summand {
    std::size_t row;
    std::size_t column;
    int sign = 1;
};

struct Row {
    RowLook look = RowLook::Plain;
    int depth = 0;                                         ///< steps by which the text is set in
    std::vector<std::string> cells{};                      ///< by column, amounts as the screen holds them
    std::string remark{};                                  ///< what decided the figure, in a word
    std::map<std::size_t, std::vector<Summand>> sums = {}; ///< by column: what the amount is the sum of
};

struct Table {
    std::string title{};
    std::vector<Column> columns{};
    std::vector<Row> rows{};
};

struct Section {
    std::string title{};
    int level = 1; ///< 2 stands under the section of level 1 before it
    std::vector<Table> tables{};
};

struct Document {
    std::string client{};
    std::string pan{};
    std::string status{};   ///< in words
    std::string year{};     ///< assessment year, "2023-24"
    std::string incomeOf{}; ///< "Income of minor 1"; empty for the assessee's own
    std::vector<Section> sections{};
};

/// The text as it is drawn: an amount in groups of the Indian kind.
std::string Drawn(const Column& column, const std::string& text);

/// Notes of each total what it is the sum of, where the figures bear it out: a hidden amount that counts leaves a total
/// a plain figure. `signs` has one sign a row: 1, -1, or 0 for a row that does not enter the totals of its column.
void FindSums(Table& table, std::size_t column, const std::vector<int>& signs);

/// The same for rows that are set in: a sum has its parts below it, one step further in, or before it under the same
/// heading.
void FindSumsOfGroups(Table& table, std::size_t column);

/// Takes out a column in which nothing stands.
void DropIfEmpty(Table& table, std::size_t column);

/// "Profit & loss" from "&Profit && loss :": a caption without mnemonic and colon.
std::string PlainCaption(const std::string& caption);

/// Name of a report's file without its extension, "AABCD1234E 2023-24": the PAN, without one the client's name.
std::string FileName(const Document& document);

} // namespace pgbp::report
