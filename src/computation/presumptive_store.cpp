#include "computation/line_header.h"
#include "computation/presumptive.h"
#include "records/keys.h"
#include "records/rows_of_type.h"
#include "services/format.h"

namespace pgbp {
namespace {

constexpr std::string_view kBusinesses = "44AD";

/// First of the four cells of the return's account without books: receipts, gross profit, expenses, net profit.
constexpr int kFirstOfBusiness = 269;
constexpr int kFirstOfProfession = 1163;
constexpr int kWholeProfit = 1167;

} // namespace

void PresumptiveFrame::Fill(const LineHeader& line)
{
    txt44ad1 = line.Stored("name1").Text();
    txt44ad2 = line.Stored("name2").Text();
    chk44ad = line.Stored("books").Flag();
    txtrece.Set(Amount(line.Stored("turnover").Number()), Notify::No);
    FillReceipts(line.Sno());
    FillBusinesses(line.Sno());
    Lbl44AD.Set(Amount(line.Stored("sec44").Number()), Notify::No);
    lbl44adfinal = Amount(line.Stored("net44").Number());
    Txt[0] = SumText(Entered().Total());
    if (!RulesOf(run_).IsNormal())
        FillAccounts(line.Sno());
}

std::vector<PresumptiveFrame::StoredField> PresumptiveFrame::StoredFields()
{
    return {{"amt1", TxtPer, Amount},           {"amt2", TxtPer6, Amount},     {"Am3", txtrece, Amount},
            {"am4", TxtRece6, Amount},          {"intt", TxtReceOth, Amount},  {"tds", TxtNetAd[0], Rupees, true},
            {"sur", TxtNetAd[1], Rupees, true}, {"cess", TxtNetAd[2], Rupees}, {"penal", TxtNetAd[3], Rupees}};
}

/// A line u/s 44AD without a second rate has all its receipts in the turnover, one u/s 44AF always.
void PresumptiveFrame::FillReceipts(double sno)
{
    if (!RulesOf(run_).DeemsAtRate() && Line() != kProfession44ADA)
        return;
    const Recordset rows = MiscItems(run_, "PGBP" + std::string(TypeOf(Line())), sno).Read();
    if (rows.Empty())
        return;
    const Row row = rows.First();
    TxtPer.Set(Amount(row["amt1"].Number()), Notify::No);
    const bool isSplit = Line() == kProfession44ADA || (Line() == kPresumptive44AD && row["amt2"].Number() != 0);
    if (!isSplit)
        return;
    for (const StoredField& stored : StoredFields())
        stored.field.Set(stored.shown(row[stored.column].Number()), Notify::No);
}

void PresumptiveFrame::FillBusinesses(double sno)
{
    businesses_.clear();
    if (Line() == kPresumptive44AD)
        for (const Row row : LineDetails(run_, kBusinesses, sno).Read("name1, amt1, amt2, amt3"))
            businesses_.push_back(
                {row["name1"].Text(), row["amt1"].Number(), row["amt2"].Number(), row["amt3"].Number()});
    openedBusinesses_ = businesses_;
}

void PresumptiveFrame::FillAccounts(double sno)
{
    for (const Row row : ScheduleCells(run_, "NEWPL", sno).Read("amt1, name8"))
        for (const int first : {kFirstOfBusiness, kFirstOfProfession})
            for (int i = 0; i < 4; ++i)
                if (row["amt1"].Number() == first + i)
                    Txt[i] = Amount(ParseAmount(row["name8"].Text()));
}

void PresumptiveFrame::Store(double sno, const Transaction& proof)
{
    StoreReceipts(sno, proof);
    if (!chk44ad.value && RulesOf(run_).StoresAccountOfReturn())
        StoreAccounts(sno, proof);
    for (const BusinessPart& business : businesses_)
        LineDetails(run_, kBusinesses, sno)
            .Add({{"name1", business.description},
                  {"amt1", business.receipts},
                  {"amt2", business.percent},
                  {"amt3", business.deemed},
                  {"Minor", MinorOfRun(run_)}},
                 proof);
    if (RulesOf(run_).CountsVehicles())
        vehicles.Store(proof);
}

void PresumptiveFrame::StoreReceipts(double sno, const Transaction& proof)
{
    std::vector<Field> fields;
    for (const auto& [column, field, shown, isRounded] : StoredFields())
        fields.push_back({column, isRounded ? ShownRupees(Val(field)) : Val(field)});
    MiscItems(run_, "PGBP" + std::string(TypeOf(Line())), sno).Replace(std::move(fields), proof);
}

/// From 2019 the figures are entered in the statement: those of an earlier save go.
void PresumptiveFrame::StoreAccounts(double sno, const Transaction& proof) const
{
    const LineRules rules = RulesOf(run_);
    const RowsOfType cells = ScheduleCells(run_, "NEWPL", sno);
    cells.Delete(proof);
    if (!rules.ShowsAccountOfReturn())
        return;
    const auto add = [&](int cell, const txtn& figure) {
        cells.Add({{"amt1", cell}, {"name8", Rupees(Val(figure))}, {"name9", "ASdf"}}, proof);
    };
    const int first = Line() == kProfession44ADA ? kFirstOfProfession : kFirstOfBusiness;
    for (int i = 0; i < 4; ++i)
        add(first + i, Txt[i]);
    if (rules.HasWholeProfit())
        add(kWholeProfit, Txt[3]);
}

} // namespace pgbp
