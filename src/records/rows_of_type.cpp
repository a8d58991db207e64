#include "records/rows_of_type.h"

namespace pgbp {

RowsOfType ScheduleCells(const Run& run, std::string_view type, std::optional<double> line)
{
    return {run, {run.balance, "qelgeneral", "amt2"}, type, line};
}

RowsOfType MiscItems(const Run& run, std::string_view type, std::optional<double> line)
{
    return {run, {run.company, "misc_items", "sno"}, type, line};
}

RowsOfType ItemsOfBalance(const Run& run, std::string_view type)
{
    return {run, {run.balance, "misc_items", "sno"}, type, std::nullopt};
}

RowsOfType LineDetails(const Run& run, std::string_view type, std::optional<double> sno)
{
    return {run, {run.company, "business1", "sno"}, type, sno};
}

RowsOfType RowsOfType::OfCode(std::string code) const
{
    RowsOfType other = *this;
    other.code_ = std::move(code);
    return other;
}

std::vector<std::string> FirstFields(const Recordset& rows)
{
    std::vector<std::string> texts;
    for (const Row row : rows)
        texts.push_back(row.At(0).Text());
    return texts;
}

Value FirstField(const Recordset& rows) { return rows.Empty() ? Value() : rows.First().At(0); }

std::string RowsOfType::Condition() const
{
    std::string condition = "from {";
    condition.append(table_.name).append("} where code = ? and [Type] = ?");
    if (line_)
        condition.append(" and ").append(table_.line).append(" = ?");
    return condition;
}

std::vector<Value> RowsOfType::Values() const
{
    std::vector<Value> values{code_, type_};
    if (line_)
        values.emplace_back(*line_);
    return values;
}

Recordset RowsOfType::Read(std::string_view columns) const
{
    const std::string select = "select " + std::string(columns) + ' ' + Condition();
    return table_.file.QueryBound(select + std::string(table_.file.dialect().insertionOrder), Values());
}

void RowsOfType::Delete(const Transaction&) const
{
    table_.file.ExecuteBound(std::string(table_.file.dialect().DeleteWord) + Condition(), Values());
}

void RowsOfType::Add(std::vector<Field> fields, const Transaction&) const
{
    fields.insert(fields.end(), {{"code", code_}, {"Type", type_}});
    if (line_)
        fields.push_back({table_.line, *line_});
    table_.file.Insert(table_.name, fields);
}

void RowsOfType::Replace(std::vector<Field> fields, const Transaction& proof) const
{
    Delete(proof);
    Add(std::move(fields), proof);
}

} // namespace pgbp
