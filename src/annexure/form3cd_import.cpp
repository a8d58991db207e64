#include "annexure/form3cd_import.h"

#include "annexure/annexure_rules.h"
#include "services/format.h"
#include "services/ini_file.h"
#include "services/text.h"
#include "startup/run.h"
#include "startup/shared_services.h"

#include <iterator>
#include <unordered_map>

namespace pgbp {
namespace {

constexpr std::string_view kReader = "Audit3CDReader.exe";

struct BlockKind {
    std::string_view group;
    int rate;
};

/// The blocks of the report's list, by their number in it, which begins at 1.
constexpr BlockKind kBlockKinds[] = {
    {"Machinery & Plant", 15},
    {"Machinery & Plant", 30},
    {"Machinery & Plant", 40},
    {"Machinery & Plant", 50},
    {"Machinery & Plant", 60},
    {"Machinery & Plant", 80},
    {"Machinery & Plant", 100},
    {"Buildings", 5},
    {"Buildings", 10},
    {"Buildings", 100},
    {"Furniture & Fittings", 10},
    {"Intangible Assets", 25},
    {"Ships", 20},
};

const BlockKind* KindOfNumber(double number)
{
    for (std::size_t i = 0; i < std::size(kBlockKinds); ++i)
        if (number == static_cast<double>(i + 1))
            return &kBlockKinds[i];
    return nullptr;
}

/// All rows of a table; none where the file lacks it, as a reader may leave it that found nothing to put in. Any other
/// refusal is thrown: a block without its additions would be a wrong one.
Recordset RowsOf(const Connection& tables, std::string_view table)
try {
    return tables.Query("select * from {" + std::string(table) + '}' + std::string(tables.dialect().insertionOrder));
} catch (const StoreError& error) {
    if (error.cause() != Cause::Unknown)
        throw;
    return {};
}

std::string KeyOf(const Record& row) { return Trim(row["Form3cdDeprAllw_Id"].Text()); }

/// The rows of a table by the block they belong to.
class RowsByBlock {
  public:
    explicit RowsByBlock(const Recordset& rows)
    {
        for (const Row row : rows) {
            const Record record(row);
            rows_[KeyOf(record)].push_back(record);
        }
    }
    const std::vector<Record>& Of(const Record& block) const
    {
        static const std::vector<Record> none;
        const auto found = rows_.find(KeyOf(block));
        return found == rows_.end() ? none : found->second;
    }

  private:
    std::unordered_map<std::string, std::vector<Record>> rows_;
};

/// A date column may hold a date or its text.
std::optional<DateTime> DayOf(const Value& value)
{
    const auto date = value.Date();
    return date ? date : FromDayText(Trim(value.Text()));
}

/// From when on an asset counts: the later of purchase and use, or the one that is known.
std::optional<DateTime> EffectiveDay(const Record& addition)
{
    return std::max(DayOf(addition["PurchaseOrSaleDate1"]), DayOf(addition["Date1PutToUse"]));
}

double CostOf(const Record& addition)
{
    return addition["PurchaseOrSaleValue"].Number() - addition["Modvat"].Number() -
           addition["ExchangeRateChange"].Number() - addition["subsidyGrant"].Number();
}

/// Section 32(1), second proviso: an asset in use for less than 180 days of the previous year has half the rate.
bool IsOfFirstHalf(const DateTime& day, int year)
{
    constexpr int kDaysOfFullRate = 180;
    return DaysBetween(day, {.year = year, .month = 3, .day = 31}) + 1 >= kDaysOfFullRate;
}

class ScheduleReader {
  public:
    ScheduleReader(const Connection& tables, int year)
        : additions_(RowsOf(tables, "Additions")), deductions_(RowsOf(tables, "Deductions")), year_(year)
    {
    }

    void Add(const Record& row)
    {
        Form3cdBlock block;
        const Value& number = row["DescBlockAssets"];
        if (const BlockKind* kind = KindOfNumber(number.Number()))
            block.heading = {row["AssetsName"].Text(), kind->group, static_cast<double>(kind->rate)};
        else
            schedule.unknownNumbers.push_back(Trim(number.Text()));
        block.opening = ShownRupees(row["OpeningWDV"].Number());
        AddPurchases(block, additions_.Of(row));
        AddSales(block, deductions_.Of(row));
        schedule.blocks.push_back(block);
    }

    Form3cdSchedule schedule;

  private:
    void AddPurchases(Form3cdBlock& block, const std::vector<Record>& additions)
    {
        double halves[2] = {};
        for (const Record& addition : additions) {
            const auto day = EffectiveDay(addition);
            schedule.undatedAdditions += !day;
            halves[day && !IsOfFirstHalf(*day, year_)] += CostOf(addition);
        }
        block.purchases1 = ShownRupees(halves[0]);
        block.purchases2 = ShownRupees(halves[1]);
    }

    static void AddSales(Form3cdBlock& block, const std::vector<Record>& deductions)
    {
        double halves[2] = {};
        for (const Record& deduction : deductions)
            halves[deduction["SaleCata"].Text() != "S1"] += deduction["PurchaseOrSaleValue"].Number();
        block.sales1 = ShownRupees(halves[0]);
        block.sales2 = ShownRupees(halves[1]);
    }

    const RowsByBlock additions_;
    const RowsByBlock deductions_;
    const int year_;
};

std::string Counted(std::size_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

std::string Listed(const std::vector<std::string>& words)
{
    std::string list;
    for (const std::string& word : words)
        list += (list.empty() ? "" : ", ") + (word.empty() ? "(none)" : word);
    return list;
}

} // namespace

Form3cdSchedule ReadForm3cdTables(const Connection& tables, int year)
{
    ScheduleReader reader(tables, year);
    for (const Row row : RowsOf(tables, "Form3cdDeprAllw"))
        reader.Add(Record(row));
    return reader.schedule;
}

DataFile Form3cdFile(const std::filesystem::path& clientFolder)
{
    return {clientFolder / "data" / "TempXML.mdb", clientFolder / "Temp.dsn", false, clientFolder};
}

Form3cdSchedule ReadForm3cd(const Run& run)
{
    RunSibling(run, kReader);
    const DataFile file = Form3cdFile(run.GlClient);
    if (!FileExists(file.path))
        return {};
    try {
        return ReadForm3cdTables(OpenFile(file), run.Year());
    } catch (const StoreError& error) {
        run.Log(error);
        return {};
    }
}

void PutInto(AnnexureRow& entry, const Form3cdBlock& block)
{
    if (block.heading) {
        entry.name = block.heading->name;
        entry.group = block.heading->group;
        entry.rate = block.heading->rate;
    }
    entry.opening = block.opening;
    entry.purchases1 = block.purchases1;
    entry.purchases2 = block.purchases2;
    entry.sales1 = block.sales1;
    entry.sales2 = block.sales2;
}

std::string NoticeOfImport(const Form3cdSchedule& schedule, std::size_t added)
{
    if (schedule.blocks.empty())
        return "Nothing was read from the audit report.";
    std::string notice = Counted(added, "block was", "blocks were") + " taken from the audit report";
    if (const std::size_t refused = schedule.blocks.size() - added)
        notice += ", " + std::to_string(refused) + " refused";
    notice += '.';
    if (!schedule.unknownNumbers.empty())
        notice += " No group and rate is known for block " + Listed(schedule.unknownNumbers) + ": please check.";
    if (schedule.undatedAdditions > 0)
        notice += ' ' + Counted(static_cast<std::size_t>(schedule.undatedAdditions), "purchase has", "purchases have") +
                  " no date and went to the first half.";
    return notice;
}

} // namespace pgbp
