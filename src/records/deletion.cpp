#include "records/deletion.h"

#include "records/keys.h"
#include "records/rows_of_line.h"
#include "services/text.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace pgbp {
namespace {

/// Rows that go with a line: a table, and behind the assessee's code the condition that finds them.
struct Part {
    const Connection* file;
    std::string table;
    std::string where;     ///< "?" is the line's number; without it the rows are those of the assessee as a whole
    bool computed = false; ///< the program stores such rows by itself: those that come back replace them

    bool OfLine() const { return where.find('?') != std::string::npos; }
};

/// Rows that went, all their columns, in the order in which they were added.
struct Taken {
    Part part;
    Recordset rows;
};

/// What was read while a line was deleted; the row of the line itself is the first.
struct DeletedLine {
    double sno;
    std::vector<Taken> taken;
};

std::string RowsOf(const Part& part) { return "from {" + part.table + "} where code = ? and " + part.where; }

std::vector<Value> ValuesOf(const Run& run, const Part& part, double sno)
{
    std::vector<Value> values{run.Code()};
    if (part.OfLine())
        values.emplace_back(sno);
    return values;
}

Recordset Read(const Run& run, const Part& part, double sno)
{
    return part.file->QueryBound("select * " + RowsOf(part) + std::string(part.file->dialect().insertionOrder),
                                 ValuesOf(run, part, sno));
}

void Drop(const Run& run, const Part& part, double sno)
{
    part.file->ExecuteBound(std::string(part.file->dialect().DeleteWord) + RowsOf(part), ValuesOf(run, part, sno));
}

/// What goes with every line of a kind.
std::vector<Part> PartsOf(const Run& run, BusinessKind kind)
{
    std::vector<Part> parts = {{&run.company, "business", "sno = ?"}};
    for (const RowsOfLine& rows : RowsOfLines(run)) {
        if (Kind(kind).isShort && !rows.alsoOfShort)
            continue;
        std::string where = rows.condition.empty() ? "" : rows.condition + " and ";
        where += '(' + rows.line + " = ?";
        if (kind == kPresumptive44AD && rows.condition.empty()) // its businesses may name no line
            where += " or [Type] = '44AD'";
        parts.push_back({rows.file, rows.table, where + ')'});
    }
    if (Kind(kind).isShort)
        return parts;
    parts.insert(parts.end(), {{&run.company, "misc_items", "[Type] = 'ITR6PLQ47'"},
                               {&run.balance, "qelgeneral", "[Type] = 'NEWPLA'"}});
    if (kind == kTransport44AE)
        parts.push_back({&run.balance, "misc_items", "[Type] = '44AE'"});
    return parts;
}

void Take(const Run& run, const Part& part, DeletedLine& line)
{
    Recordset rows = Read(run, part, line.sno);
    if (rows.Empty())
        return;
    Drop(run, part, line.sno);
    line.taken.push_back({part, std::move(rows)});
}

/// The rows that were taken from a table; nothing where there were none.
Recordset TakenFrom(const DeletedLine& line, std::string_view table)
{
    const auto found = std::find_if(line.taken.begin(), line.taken.end(),
                                    [&](const Taken& taken) { return taken.part.table == table; });
    return found == line.taken.end() ? Recordset() : found->rows;
}

/// The deduction on the summary that comes from the partners' own rows goes with the last of them.
void TakeDeduction(const Run& run, std::string_view partners, const char* amount, const char* deduction,
                   DeletedLine& line)
{
    bool took = false;
    for (const Row row : TakenFrom(line, "business1"))
        took = took || (EqualsIgnoringCase(row["Type"].Text(), partners) && row[amount].Flag());
    const std::string left = std::string("select code from {business1} where code = ? and [Type] = ? and ") + amount;
    if (took && run.company.Query(left + " <> 0", run.Code(), partners).Empty())
        Take(run, {&run.company, "business1", std::string("[Type] = '") + deduction + '\'', true}, line);
}

/// Reads and deletes. Inside a transaction of the caller.
DeletedLine TakeLine(const Run& run, BusinessKind kind, double sno)
{
    DeletedLine line{sno, {}};
    for (const Part& part : PartsOf(run, kind))
        Take(run, part, line);
    if (!TakenFrom(line, "fassets").Empty())
        Take(run, {&run.company, "capital1", "[Type] = 'Sec50'"}, line);
    TakeDeduction(run, "PARTINTT", "amt3", "LESSINTT", line);
    TakeDeduction(run, "PARTREMU", "amt1", "LESSREMU", line);
    return line;
}

/// The rows as they were; `to` stands where the line's number stood.
void PutBack(const Taken& taken, double from, double to)
{
    const std::string_view number = taken.part.table == "qelgeneral" ? "amt2" : "sno";
    for (const Row row : taken.rows) {
        std::vector<Field> fields;
        for (std::size_t i = 0; i < row.Size(); ++i) {
            const bool isNumber = EqualsIgnoringCase(row.Name(i), number) && row.At(i).Number() == from;
            fields.push_back({row.Name(i), isNumber ? Value(to) : row.At(i)});
        }
        taken.part.file->Insert(taken.part.table, fields);
    }
}

/// Rows of the assessee as a whole that were stored since are newer, and stay.
void BringBack(const Run& run, const DeletedLine& line)
{
    Transaction transaction({run.company, run.balance});
    const bool isFree = run.company.Query("select sno from {business} where sno = ?", line.sno).Empty();
    const double sno = isFree ? line.sno : NextSno(run, transaction);
    for (const Taken& taken : line.taken) {
        if (taken.part.computed)
            Drop(run, taken.part, sno);
        if (taken.part.OfLine() || Read(run, taken.part, sno).Empty())
            PutBack(taken, line.sno, sno);
    }
    transaction.Commit();
}

} // namespace

void DeleteLine(Run& run, BusinessKind kind, double sno)
{
    run.deletingLine();
    Transaction transaction({run.company, run.balance});
    const auto line = std::make_shared<const DeletedLine>(TakeLine(run, kind, sno));
    transaction.Commit();
    run.deletion.reset();
    const Recordset itself = TakenFrom(*line, "business");
    if (itself.Empty()) // another user deleted it before
        return;
    const Row row = itself.First();
    run.deletion = {Trim(row["name1"].Text() + ' ' + row["name2"].Text()), [&run, line] { BringBack(run, *line); }};
}

} // namespace pgbp
