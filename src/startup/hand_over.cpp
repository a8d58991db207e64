#include "startup/hand_over.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr HandOverColumn kColumns[] = {
    {"GLGroup", &HandOver::GLGroup},
    {"GLReport", &HandOver::GLReport},
    {"GLrem", &HandOver::GLrem},
    {"GLPend", &HandOver::GLPend},
    {"GLlock", &HandOver::GLlock},
    {"GlDate", &HandOver::GlDate},
    {"GLcompany", &HandOver::GLcompany},
    {"GLsex", &HandOver::GLsex},
    {"GComp", &HandOver::GComp},
    {"GLrep", &HandOver::GLrep},
    {"GLwhere", &HandOver::GLwhere},
    {"Glall", &HandOver::Glall},
    {"GLminor", &HandOver::GLminor},
    {"GLtitle", &HandOver::GLtitle},
    {"USER", &HandOver::USER},
    {"Glold", &HandOver::Glold},
    {"Glrebate1", &HandOver::Glrebate1},
    {"Glrebate2", &HandOver::Glrebate2},
    {"Gl88B", &HandOver::Gl88B},
    {"Gl88C", &HandOver::Gl88C},
    {"Glsurcharge", &HandOver::Glsurcharge},
    {"GLCess", &HandOver::GLCess},
    {"GL80", &HandOver::GL80},
    {"GL88", &HandOver::GL88},
    {"Glsenior", &HandOver::Glsenior},
    {"Glstatus", &HandOver::Glstatus},
    {"Rebate", &HandOver::Rebate},
    {"Gladmin", &HandOver::Gladmin},
    {"Gluser", &HandOver::Gluser},
    {"Glyear", &HandOver::Glyear},
    {"Glcode", &HandOver::Glcode},
    {"PGBPloss", &HandOver::PGBPloss},
    {"GlSpLoss", &HandOver::GlSpLoss},
    {"IncNormal", &HandOver::IncNormal},
    {"IncSpecialL1", &HandOver::IncSpecialL1},
    {"IncSpecialL2", &HandOver::IncSpecialL2},
    {"IncSpecial2", &HandOver::IncSpecial2},
    {"STCG", &HandOver::STCG},
    {"NorInc", &HandOver::NorInc},
    {"SpInc", &HandOver::SpInc},
    {"NorTax", &HandOver::NorTax},
    {"SpTax", &HandOver::SpTax},
    {"SpTax1", &HandOver::SpTax1},
    {"GlPrCode", &HandOver::GlPrCode},
    {"GlLarge", &HandOver::GlLarge},
    {"GlProv", &HandOver::GlProv},
    {"GLMaxRate", &HandOver::GLMaxRate},
    {"GlServer", &HandOver::GlServer},
    {"GlClient", &HandOver::GlClient},
};

void Take(std::string& variable, const Value& value) { variable = value.Text(); }
void Take(double& variable, const Value& value) { variable = value.Number(); }
void Take(bool& variable, const Value& value) { variable = value.Flag(); }
void Take(int& variable, const Value& value)
{
    variable = value.Flag() ? static_cast<int>(std::clamp(value.Number(), -32768.0, 32767.0)) : 0;
}

std::vector<Field> FieldsOf(const HandOver& record)
{
    std::vector<Field> fields;
    for (const HandOverColumn& column : kColumns)
        std::visit([&](auto member) { fields.push_back({column.name, Value(record.*member)}); }, column.variable);
    return fields;
}

void ReplaceRow(const Connection& file, std::span<const Field> fields)
{
    Transaction transaction({file});
    file.Delete("from {main}");
    file.Insert("main", fields);
    transaction.Commit();
}

} // namespace

std::span<const HandOverColumn> HandOverColumns() { return kColumns; }

bool ReadHandOver(const Connection& file, HandOver& record)
{
    const Recordset rows = file.Query("select * from {main}");
    if (rows.Empty())
        return false;
    const Row row = rows.First();
    for (const HandOverColumn& column : kColumns)
        std::visit([&](auto member) { Take(record.*member, row[column.name]); }, column.variable);
    return true;
}

void WriteHandOver(const Connection& file, const HandOver& record)
{
    std::vector<Field> fields = FieldsOf(record);
    std::erase_if(fields, [](const Field& field) { return field.column == "GlProv"; });
    ReplaceRow(file, fields);
}

void WriteLinkHandOver(const Connection& file, const HandOver& record)
{
    std::vector<Field> fields = FieldsOf(record);
    fields.push_back({"GL88D", 0}); // no variable of the module holds it
    ReplaceRow(file, fields);
}

} // namespace pgbp
