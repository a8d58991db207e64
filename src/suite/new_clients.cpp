#include "suite/new_clients.h"

#include "services/text.h"
#include "store/schema.h"
#include "suite/client_settings.h"
#include "suite/clients.h"
#include "suite/pan.h"
#include "suite/row_writer.h"

#include <algorithm>
#include <stdexcept>

namespace pgbp {
namespace {

[[noreturn]] void Refuse(const std::string& why) { throw std::runtime_error(why); }

void CheckAssessee(const Practice& practice, const Assessee& assessee)
{
    if (Trim(assessee.name).empty())
        Refuse("The assessee needs a name.");
    if (!IsPan(assessee.pan))
        Refuse("\"" + assessee.pan +
               "\" is no PAN: five capital letters, four digits and a capital letter are wanted.");
    if (assessee.status.size() != 2 || assessee.status.find_first_not_of("0123456789") != std::string::npos)
        Refuse("\"" + assessee.status + "\" is no status code: two digits are wanted, 01 for an individual.");
    const Recordset others = practice.company.Query("select comp_name from {assessee} where pan = ?", assessee.pan);
    if (!others.Empty())
        Refuse("The PAN " + assessee.pan + " belongs to " + others.First()["comp_name"].Text() + " already.");
}

const Column& AssesseeColumn(const std::string& name)
{
    const Table& table = *std::ranges::find_if(
        Tables(), [](const Table& each) { return each.file == "company" && each.name == "assessee"; });
    const auto found = std::ranges::find_if(
        table.columns, [&](const Column& column) { return EqualsIgnoringCase(column.name, name); });
    if (found == table.columns.end() || found->kind != ColumnKind::Text)
        Refuse("An assessee has no column " + name + ".");
    return *found;
}

double InsertAssessee(const Practice& practice, const Assessee& assessee)
{
    CheckAssessee(practice, assessee);
    const double number = practice.company.NextNumber("assessee", "company");
    std::vector<std::string> columns{"company", "comp_name", "pan", "Status", "flag"};
    std::vector<Value> values{number, Trim(assessee.name), assessee.pan, assessee.status, true};
    for (const auto& [name, value] : assessee.further) {
        columns.emplace_back(AssesseeColumn(name).name);
        values.emplace_back(value);
    }
    RowWriter(practice.company, "assessee", columns).Add(values);
    return number;
}

/// Those of the year before; the remuneration of a client without one is computed by the module.
ClientSettings SettingsOfNewYear(const Practice& practice, const AssesseeYear& assesseeYear)
{
    const std::string before = PrecedingCode(practice, assesseeYear);
    ClientSettings settings;
    settings.remunerationByHand = false;
    if (!before.empty())
        settings = ReadSettings(practice, before);
    settings.locked = false;
    return settings;
}

/// Adds the year's rows and settings, all but its return form.
AssesseeYear InsertYear(const Practice& practice, double client, std::string_view year)
{
    const Recordset assessees =
        practice.company.Query("select comp_name, pan, status from {assessee} where company = ?", client);
    if (assessees.Empty())
        Refuse("The practice has no assessee with the number " + Value(client).Text() + ".");
    if (practice.company.Scalar("select count(*) from {misc} where [type] = 'YEAR' and name = ?", year).Number() == 0)
        Refuse("\"" + std::string(year) + "\" is none of the assessment years of the practice, such as 2023-24.");
    const Value existing =
        practice.company.Scalar("select code from {assessee1} where company = ? and [year] = ?", client, year);
    if (!existing.IsNull())
        Refuse("The assessee has the year " + std::string(year) + " already: " + existing.Text() + ".");
    const Row assessee = assessees.First();
    AddAssesseeYear(practice.company, client, assessee["comp_name"], assessee["pan"], year, false);
    AssesseeYear added = FindAssesseeYear(practice, CodeOf(client, year));
    WriteSettings(practice, added, SettingsOfNewYear(practice, added));
    return added;
}

std::string Finish(const Practice& practice, Transaction& transaction, const AssesseeYear& added, double itr)
{
    ReturnFormChange form(practice, added.code, itr != 0 ? itr : UsualReturnForm(added.status));
    transaction.Commit();
    form.Keep();
    return added.code;
}

} // namespace

double AddAssessee(const Practice& practice, const Assessee& assessee)
{
    Transaction transaction({practice.company});
    const double number = InsertAssessee(practice, assessee);
    transaction.Commit();
    return number;
}

std::string AddYear(const Practice& practice, double client, std::string_view year, double itr)
{
    Transaction transaction({practice.company, practice.balance});
    return Finish(practice, transaction, InsertYear(practice, client, year), itr);
}

std::string AddClient(const Practice& practice, const Assessee& assessee, std::string_view year, double itr)
{
    Transaction transaction({practice.company, practice.balance});
    const double number = InsertAssessee(practice, assessee);
    return Finish(practice, transaction, InsertYear(practice, number, year), itr);
}

} // namespace pgbp
