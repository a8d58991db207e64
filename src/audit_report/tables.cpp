#include "audit_report/tables.h"

#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"
#include "store/files.h"
#include "store/schema.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>

namespace pgbp {
namespace {

constexpr std::string_view kFile = "TempXML";
constexpr std::string_view kKey = "Form3cdDeprAllw_Id";

/// Tells the place in the report in an error.
struct Place {
    std::size_t block; ///< counted from 1
    std::string_view member;
};

ReportError Refusal(const Place& place, const std::string& why)
{
    return ReportError("Block " + std::to_string(place.block) + " of the depreciation schedule, " +
                       std::string(place.member) + ": " + why);
}

Value TextValue(const std::string& text, const Place& place)
{
    if (text.empty())
        return {};
    std::string plain = text;
    std::ranges::replace_if(
        plain, [](unsigned char c) { return c < ' '; }, ' ');
    if (CharacterCount(plain) > ColumnWidth(kFile, kBlockElement, "AssetsName"))
        throw Refusal(place, "the text is longer than a name can be.");
    return plain;
}

/// Digits with a point, a minus and commas between them, as many as a double holds.
Value AmountValue(const std::string& text, const Place& place)
{
    constexpr double kBeyond = 1e15;
    if (text.empty())
        return {};
    const std::string digits = Replace(text, ",", "");
    double amount = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, amount, std::chars_format::fixed);
    if (read.ec != std::errc() || read.ptr != end || !(std::fabs(amount) < kBeyond))
        throw Refusal(place, "\"" + text.substr(0, 40) + "\" is no amount.");
    return amount;
}

/// The day of "2022-10-02", with or without a time or a time zone behind it.
std::optional<DateTime> DayOfIsoText(std::string_view text)
{
    const auto date = FromIsoText(text.substr(0, 10));
    const bool ends = text.size() <= 10 || std::string_view("TZ+-").find(text[10]) != std::string_view::npos;
    return date && ends ? FromDayText(DayText(*date)) : std::nullopt;
}

Value DateValue(const std::string& text, const Place& place)
{
    if (text.empty())
        return {};
    if (const auto date = DayOfIsoText(text))
        return *date;
    if (const auto date = FromDayText(Replace(text, "/", "-")))
        return *date;
    throw Refusal(place, "\"" + text.substr(0, 40) + "\" is no date.");
}

/// Where the value of a column comes from. The tables' own names count as well, since files are about that have them.
struct Source {
    std::string_view column;
    std::string_view member;
    Value (*read)(const std::string&, const Place&);
};

constexpr Source kAdditionSources[] = {
    {"PurchaseOrSaleDate1", "PurchaseOrSaleDate", DateValue},    {"Date1PutToUse", "DatePutToUse", DateValue},
    {"PurchaseOrSaleValue", "PurchaseOrSaleValue", AmountValue}, {"Modvat", "Modvat", AmountValue},
    {"ExchangeRateChange", "ExchangeRateChange", AmountValue},   {"subsidyGrant", "SubsidyGrant", AmountValue},
};
constexpr Source kSaleSource = {"PurchaseOrSaleValue", "PurchaseOrSaleValue", AmountValue};

Field Read(const Source& source, const Members& members, std::size_t block)
{
    return {source.column, source.read(members[{source.member, source.column}], {block, source.member})};
}

ReportTables::Row AdditionRow(const Members& addition, std::size_t block)
{
    ReportTables::Row row{{kKey, block}};
    for (const Source& source : kAdditionSources)
        row.push_back(Read(source, addition, block));
    return row;
}

/// The schema does not tell what a sold asset was bought as. It then comes off the opening value and the purchases of
/// the first half, whose shortfall the annexure takes from the second.
ReportTables::Row DeductionRow(const Members& deduction, std::size_t block)
{
    const std::string& told = deduction[{"SaleCata"}];
    return {{kKey, block},
            {"SaleCata", told.empty() ? Value("S1") : TextValue(told, {block, "SaleCata"})},
            Read(kSaleSource, deduction, block)};
}

/// The group of the schema's block numbers: 1 to 13, and the two that came later.
std::string_view GroupOfNumber(std::string_view number)
{
    struct Group {
        std::string_view name;
        std::string_view numbers;
    };
    static constexpr Group kGroups[] = {
        {"Machinery & Plant", " 1 2 3 4 5 6 7 48 "},
        {"Buildings", " 8 9 10 47 "},
        {"Furniture & Fittings", " 11 "},
        {"Intangible Assets", " 12 "},
        {"Ships", " 13 "},
    };
    const std::string word = ' ' + std::string(number) + ' ';
    const auto* const found = std::ranges::find_if(
        kGroups, [&](const Group& group) { return group.numbers.find(word) != std::string_view::npos; });
    return found == std::end(kGroups) ? "Block" : found->name;
}

/// The schema knows no name of a block: it gets the words that the form's list has for it.
std::string NameOf(const Members& block)
{
    if (const std::string& told = block[{"AssetsName"}]; !told.empty())
        return told;
    const std::string& number = block[{"DescBlockAssets"}];
    const std::string_view group = GroupOfNumber(number);
    const std::string& rate = block[{"RateOfDep"}];
    return std::string(group) + (group == "Block" ? ' ' + number : "") + (rate.empty() ? "" : ' ' + rate + '%');
}

ReportTables::Row BlockRow(const Members& block, std::size_t number)
{
    return {{kKey, number},
            {"DescBlockAssets", TextValue(block[{"DescBlockAssets"}], {number, "DescBlockAssets"})},
            {"AssetsName", TextValue(NameOf(block), {number, "AssetsName"})},
            {"OpeningWDV", AmountValue(block[{"OpeningWDV"}], {number, "OpeningWDV"})}};
}

double AmountIn(const ReportTables::Row& row, std::string_view column)
{
    const auto field = std::ranges::find(row, column, &Field::column);
    return field == row.end() ? 0 : field->value.Number();
}

double CostOf(const ReportTables::Row& addition)
{
    return AmountIn(addition, "PurchaseOrSaleValue") - AmountIn(addition, "Modvat") -
           AmountIn(addition, "ExchangeRateChange") - AmountIn(addition, "subsidyGrant");
}

double ProceedsOf(const ReportTables::Row& deduction) { return AmountIn(deduction, "PurchaseOrSaleValue"); }

/// Holds the rows of a block, the last ones, against the total that the report has for them. It has another one where a
/// long list is attached to it as a file of its own, or where signs were keyed in another way.
void CompareWithTotal(ReportTables& tables, const ReportedBlock& block, std::string_view member,
                      std::span<const ReportTables::Row> rows, double (*amount)(const ReportTables::Row&),
                      std::string_view what)
{
    const Value total = AmountValue(block.members[{member}], {tables.blocks.size(), member});
    double sum = 0;
    for (const ReportTables::Row& row : rows)
        sum += amount(row);
    if (!total.IsNull() && Rupees(total.Number()) != Rupees(sum))
        tables.warnings.push_back(NameOf(block.members) + ": the " + std::string(what) + " in the file come to " +
                                  Rupees(sum) + ", their total is " + Rupees(total.Number()) + ". Please check.");
}

} // namespace

ReportTables TablesOf(const std::vector<ReportedBlock>& blocks)
{
    ReportTables tables;
    for (const ReportedBlock& block : blocks) {
        const std::size_t number = tables.blocks.size() + 1;
        tables.blocks.push_back(BlockRow(block.members, number));
        for (const Members& addition : block.additions)
            tables.additions.push_back(AdditionRow(addition, number));
        for (const Members& deduction : block.deductions)
            tables.deductions.push_back(DeductionRow(deduction, number));
        CompareWithTotal(tables, block, "TotalPurchaseValue", std::span(tables.additions).last(block.additions.size()),
                         CostOf, "purchases");
        CompareWithTotal(tables, block, "TotalDeduction", std::span(tables.deductions).last(block.deductions.size()),
                         ProceedsOf, "sales");
    }
    return tables;
}

void RemoveTables(const std::filesystem::path& file)
{
    std::filesystem::path journal = file;
    journal += "-journal"; // left by a writer that was killed, it would be rolled back into the new file
    for (const std::filesystem::path& each : {file, journal}) {
        std::error_code error;
        if (!std::filesystem::remove(each, error) && error)
            throw FileFault(error.value(), Attempt::Save, each.string());
    }
}

void WriteTables(const std::filesystem::path& file, const ReportTables& tables)
{
    RemoveTables(file);
    CreateEmbeddedFile(file, kFile);
    const Connection made = OpenFile({file, {}});
    Transaction transaction({made});
    const auto add = [&](std::string_view table, const std::vector<ReportTables::Row>& rows) {
        RowsInto into(made, table);
        for (const ReportTables::Row& row : rows)
            into.Add(row);
    };
    add(kBlockElement, tables.blocks);
    add(kAdditionElement, tables.additions);
    add(kDeductionElement, tables.deductions);
    transaction.Commit();
}

} // namespace pgbp
