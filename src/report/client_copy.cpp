#include "report/client_copy.h"

#include "module/module.h"
#include "services/fault.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "statements/ind_as_totals.h"
#include "statements/statement_form.h"
#include "store/embedded_engine.h"
#include "store/schema.h"

#include <array>

namespace pgbp::report {
namespace {

/// Which rows of a table are a client's.
enum class Rows {
    OfBothYears, ///< by `code`
    OfClient,    ///< by `company`
    OfYears,     ///< the list of assessment years
    OfTemplate,  ///< of the client's account
    OfIndAS,     ///< the same of a company that reports under Ind AS
    All
};

struct CopiedTable {
    std::string_view file;
    std::string_view table;
    Rows rows;
};

constexpr CopiedTable kCopied[] = {
    {"company", "business", Rows::OfBothYears},
    {"company", "business1", Rows::OfBothYears},
    {"company", "misc_items", Rows::OfBothYears},
    {"company", "capital1", Rows::OfBothYears},
    {"company", "setup", Rows::OfBothYears},
    {"company", "assessee1", Rows::OfClient},
    {"company", "assessee", Rows::OfClient},
    {"company", "misc", Rows::OfYears},
    {"balance", "qelgeneral", Rows::OfBothYears},
    {"balance", "fassets", Rows::OfBothYears},
    {"balance", "misc_items", Rows::OfBothYears},
    {"tax", "system", Rows::All},
    {"tax", "misc", Rows::All},
    {"tax", "taxaudit", Rows::OfTemplate},
    {"tax", "taxauditjson", Rows::OfIndAS},
    {"tax", "air", Rows::All},
};

const Table& TableNamed(const CopiedTable& wanted)
{
    for (const Table& table : Tables())
        if (table.file == wanted.file && table.name == wanted.table)
            return table;
    throw std::logic_error("The store has no table " + std::string(wanted.table));
}

std::string SelectOf(const CopiedTable& wanted, const Dialect& dialect)
{
    std::string columns;
    for (const pgbp::Column& column : TableNamed(wanted).columns)
        columns.append(columns.empty() ? "[" : ",[").append(column.name).append("]");
    constexpr std::array<std::string_view, 6> kConditions = {" where code in (?, ?)", " where company = ?",
                                                             " where [type] = ?",     " where d_type = ?",
                                                             " where d_type = ?",     ""};
    return "select " + columns + " from {" + std::string(wanted.table) + '}' +
           std::string(kConditions[static_cast<std::size_t>(wanted.rows)]) + std::string(dialect.insertionOrder);
}

/// The rows in the order in which they were added.
void Copy(const Connection& from, const Connection& to, const CopiedTable& wanted, std::span<const Value> values)
{
    const Recordset rows = from.QueryBound(SelectOf(wanted, from.dialect()), values);
    RowsInto table(to, wanted.table);
    for (const Row row : rows) {
        std::vector<Field> fields;
        fields.reserve(row.Size());
        for (std::size_t i = 0; i < row.Size(); ++i)
            fields.push_back({row.Name(i), row.At(i)});
        table.Add(std::move(fields));
    }
}

} // namespace

ClientCopy::ClientCopy(const PracticeFiles& practice, const HandOver& record, double returnForm)
    : run_({.boxes = boxes_, .files = files_, .processes = processes_, .programFolder = practice.programFolder})
{
    static_cast<HandOver&>(run_) = record;
    run_.Glcode = Trim(record.Glcode);
    run_.GLrep.clear();
    run_.GLlock = 0;
    run_.GLwhere = 0;
    run_.GlLarge = true;
    run_.GlITR = returnForm;
    run_.company = practice.company;
    run_.GlPrCode = PreviousYearCode(run_);
    CopyRows(practice);
    RegisterScreens(run_);
    run_.screens.Show(screens::frmmdi);
}

void ClientCopy::CopyRows(const PracticeFiles& practice)
{
    const std::string code = run_.Code();
    const Recordset client = practice.company.Query("select company, pan from {assessee1} where code = ?", code);
    if (client.Empty())
        throw Fault("The practice has no client with the code \"" + code + "\".");
    pan_ = Trim(client.First()["pan"].Text());

    constexpr std::array<std::string_view, 3> kFiles = {"company", "balance", "tax"};
    constexpr std::array<std::string_view, 1> kWorkingFile = {"qeltemp"};
    const std::vector<Connection> copies = OpenInMemory(kFiles);
    run_.qeltemp = OpenInMemory(kWorkingFile).front();
    Transaction transaction({copies[0], copies[1], copies[2]});
    const auto form = OpenStatementForm(run_.Year(), static_cast<int>(run_.GlITR), StatementKind::ProfitAndLoss);
    const std::array<std::vector<Value>, 6> values = {std::vector<Value>{code, run_.GlPrCode},
                                                      {client.First()["company"]},
                                                      {Value("YEAR")},
                                                      {TemplateName(form)},
                                                      {IndTemplateName(IndStatement::INDPNL)},
                                                      {}};
    for (const CopiedTable& table : kCopied) {
        const auto at = static_cast<std::size_t>(std::ranges::find(kFiles, table.file) - kFiles.begin());
        const Connection& from = at == 0 ? practice.company : at == 1 ? practice.balance : practice.tax;
        Copy(from, copies[at], table, values[static_cast<std::size_t>(table.rows)]);
    }
    transaction.Commit();
    run_.company = copies[0];
    run_.balance = copies[1];
    run_.tax = copies[2];
}

} // namespace pgbp::report
