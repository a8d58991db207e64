#include "income/commission.h"

#include "entry/checks.h"
#include "records/keys.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <numeric>

namespace pgbp {
namespace {

constexpr const char* kCaption = "Commission from LIC, UTI etc.";

/// The rows as they are stored, in their order. The deduction is not a commission and comes behind them.
struct KindOfRow {
    std::string_view type;
    const char* name1;
};
constexpr KindOfRow kRows[] = {
    {"LIC", "Commission from LIC of India"},
    {"UTI", "Commission from UTI"},
    {"SEC", "Commission from Specified Securites"},
    {"MF", "Commission from MutualFunds"},
};

double Sum(const Commissions& commissions) { return std::accumulate(commissions.begin(), commissions.end(), 0.0); }

} // namespace

Commission::Line::Line(Form& form, const char* name, const char* captionText, const char* itsType,
                       const char* itsColumn)
    : label(form, std::string("lbl") + name, captionText), field(form, name), type(itsType), column(itsColumn)
{
}

Commission::Commission(Screen& summary, CommissionUse use)
    : fralic(summary, "fralic", kCaption), Label12(summary, "Label12", "Agents of LIC :", LabelLook::Heading),
      lbldedc(summary, "lbldedc", "Ad hoc Deduction :"), lblded(summary, "lblded", "0.00", LabelLook::Amount),
      ImgHelp(summary, "ImgHelp", "Maximum Deduction ?"), lblcommc(summary, "lblcommc", "Income from Commission :"),
      lblcomm(summary, "lblcomm", "0.00", LabelLook::Amount), cmdsavelic(summary, "cmdsavelic", "&Save"),
      cmdbacklic(summary, "cmdbacklic", "&Cancel"), form_(summary), run_(summary.run), use_(std::move(use))
{
    lines.emplace_back(summary, "Txt1", "Ist Year Commission :", "LIC", "amt1");
    lines.emplace_back(summary, "Txt2", "Renewal Commission :", "LIC", "amt2");
    lines.emplace_back(summary, "Txt3", "Combined Ist Year & Renewal Commission :", "LIC", "amt3");
    lines.emplace_back(summary, "Txt4", "Bonus Commission :", "LIC", "amt4");
    lines.emplace_back(summary, "Txt5", "Agents of UTI :", "UTI", "amt1");
    lines.emplace_back(summary, "txtn6", "Agents of Specified Securities :", "SEC", "amt1");
    lines.emplace_back(summary, "txtn7", "Agents of Notified Mutual Fund u/s 10(23D) :", "MF", "amt1");
    LayOut();
    for (Line& line : lines)
        line.field.onChange = [this] { CalcCommission(); };
    ImgHelp.onClick = [this] { run_.screens.ShowModal(screens::FrmHelp, {ImgHelp.toolTip.get()}, use_.recompute); };
    cmdsavelic.onClick = [this] { Save(); };
    cmdbacklic.onClick = [this] { Leave(); };
    fralic.onEscape = [this] {
        if (MayDiscard(run_, Altered()))
            Leave();
    };
}

void Commission::LayOut()
{
    std::vector<LayoutRow> rows{{{&Label12}}};
    for (Line& line : lines)
        rows.push_back({{&line.label, &line.field}});
    rows[1].cells.push_back(&ImgHelp);
    rows.push_back({{&lbldedc, &lblded}});
    rows.push_back({{&lblcommc, &lblcomm}, RowStyle::Total});
    fralic.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Button},
                .rows = std::move(rows),
                .buttonsRight = {&cmdsavelic, &cmdbacklic}});
    cmdsavelic.isDefault = true;
}

void Commission::Open()
{
    rates_.clear();
    for (const Row row : run_.tax.Query("select * from {misc}"))
        rates_.push_back({row["type"].Text(), row["Rate"].Number(), row["Max"].Number()});
    Fill();
    CalcCommission();
    opened_.Remember(fralic);
    form_.Raise(fralic, lines.front().field);
}

void Commission::Fill()
{
    for (Line& line : lines)
        line.field = "0.00";
    const std::string sql = "select * from {business1} where code = ? and " + std::string(kIsCommission);
    for (const Row row : run_.company.Query(sql + std::string(run_.company.dialect().insertionOrder), run_.Glcode))
        for (Line& line : lines)
            if (EqualsIgnoringCase(row["Type"].Text(), line.type))
                line.field = Amount(row[line.column].Number());
}

Commissions Commission::Entered() const
{
    Commissions entered{};
    std::ranges::transform(lines, entered.begin(), [](const Line& line) { return Val(line.field); });
    return entered;
}

void Commission::CalcCommission()
{
    const Commissions entered = Entered();
    lblded = Amount(AdHocDeduction(entered, rates_, use_.limit()));
    lblcomm = Amount(Sum(entered) - Val(lblded));
}

void Commission::Save()
{
    Transaction transaction({run_.company, run_.balance});
    StoreRows(transaction);
    StoreCells(transaction);
    transaction.Commit();
    form_.TellSaved(kCaption, Val(lblcomm));
    Leave();
}

/// The row of LIC stands whenever there is any commission, the others where they have one.
void Commission::StoreRows(const Transaction& transaction) const
{
    run_.company.Delete("from {business1} where code = ? and " + std::string(kIsCommission), run_.Code());
    const Commissions entered = Entered();
    if (std::ranges::all_of(entered, [](double rupees) { return rupees == 0; }))
        return;
    for (const auto& [type, name1] : kRows) {
        std::vector<Field> fields{{"name1", name1}};
        bool isThere = type == "LIC";
        for (const Line& line : lines)
            if (type == line.type) {
                fields.push_back({line.column, Val(line.field)});
                isThere = isThere || Val(line.field) != 0;
            }
        if (isThere)
            LineDetails(run_, type).Add(std::move(fields), transaction);
    }
    if (Val(lblded) != 0)
        LineDetails(run_, "ZADHOC").Add({{"name1", "Ad hoc Deduction"}, {"amt1", Val(lblded)}}, transaction);
}

/// The return's schedule, where no accounts are kept: receipts, gross profit, expenses, net profit, and their total.
void Commission::StoreCells(const Transaction& transaction) const
{
    constexpr int kFirstYear = 2007;
    constexpr int kFirstYearOfTotal = 2017;
    if (run_.Year() < kFirstYear)
        return;
    const std::string receipts = Rupees(Sum(Entered()));
    const std::string income = Rupees(Val(lblcomm));
    std::vector<std::pair<int, std::string>> cells{{269, receipts}, {270, income}, {271, "0"}, {272, income}};
    if (run_.Year() >= kFirstYearOfTotal)
        cells.emplace_back(1167, income);
    const RowsOfType stored = ScheduleCells(run_, "NEWPL", kCommissionCells);
    stored.Delete(transaction);
    for (const auto& [cell, amount] : cells)
        stored.Add({{"amt1", cell}, {"name8", amount}, {"name9", "ASdf"}}, transaction);
}

void Commission::Leave()
{
    form_.Lower(fralic);
    use_.recompute();
    form_.SetFocus(use_.button);
}

} // namespace pgbp
