#include "income/frmbusiness.h"
#include "records/keys.h"
#include "records/limits.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/status.h"

#include <iterator>
#include <utility>

namespace pgbp {
namespace {

/// Sums over a kind's rows; nothing where all its fields are Null.
struct KindSums {
    std::optional<double> net;
    std::optional<double> net44;
    std::optional<double> loss;
};

std::optional<double> Sum(const Value& value) { return value.IsNull() ? std::nullopt : std::optional(value.Number()); }

/// One read for all kinds of business; a kind without rows has no sums.
class LineSums {
  public:
    explicit LineSums(const Run& run)
        : rows_(QueryOfMinor(run,
                             "select [Type], sum(net) as [total], sum(net44) as [deemed], sum(loss) as [setoff] from "
                             "{business} where code = ?",
                             {run.Glcode}, " group by [Type]"))
    {
    }

    KindSums Of(std::string_view type) const
    {
        for (const Row row : rows_)
            if (EqualsIgnoringCase(row.At(0).Text(), type))
                return {Sum(row.At(1)), Sum(row.At(2)), Sum(row.At(3))};
        return {};
    }

  private:
    Recordset rows_;
};

void ShowSum(TextControl& line, const std::optional<double>& sum)
{
    if (sum)
        line = Amount(*sum);
}

} // namespace

void frmbusiness::Activate()
{
    recomputed_ = false;
    OpenGst();
    if (!run.readOnly) {
        DeleteOrphanCells(run);
        NoteWhetherBusinessExists();
    }
    DeleteRetailLines();
    CloseExemptShares();
    const Reading reading(run.company); // behind the one question that is asked
    ShowIncomeUnderSection11();
    LicLimit = CommissionLimit(run);
    if (Rules().PlantsLimits() && !run.readOnly)
        PlantLimits2017(run);
    ShowLines();
    ShowAuditAdjustment();
    ShowCommission();
    AddUp();
    if (Rules().ShowsPartnerLines())
        partners.Show();
    ShowSetOff();
    AddUpAfterPartners();
    LockWhenLocked();
    if (Rules().ShowsPartnerLines())
        partners.TakeInterestFromPartners();
    partners.RefreshRemuneration();
    ShowPreviousYear();
    recomputed_ = true;
}

void frmbusiness::OpenGst()
{
    CmdGST.enabled = Rules().GstIsOpen();
    CmdGST.caption = std::string(Rules().GstCaption());
}

/// The suite reads from this row whether there is any business at all.
void frmbusiness::NoteWhetherBusinessExists()
{
    const auto has = [&](const char* sql) { return !run.company.Query(sql, run.Glcode).Empty(); };
    const bool exists = has("select code from {business} where code = ?") ||
                        has("select code from {misc_items} where code = ? and [Type] = 'SAOP'") ||
                        has("select code from {business1} where code = ?");
    const std::string flag = exists ? "1" : "0";
    for (const Row row :
         run.company.Query("select name3 from {misc_items} where code = ? and [Type] = 'Fast2018'", run.Glcode))
        if (row.At(0).Text() != flag)
            run.company.Execute("update {misc_items} set name3 = ? where code = ? and [Type] = 'Fast2018'", flag,
                                run.Glcode);
}

/// Section 44AF is gone from assessment year 2011-12, and its stored lines with it.
void frmbusiness::DeleteRetailLines()
{
    Label3 = std::string(Rules().Caption44AD());
    if (!Rules().Has44AF() && !run.readOnly &&
        !run.company.Query("select code from {business} where code = ? and [Type] = '5'", run.Glcode).Empty())
        run.company.Delete("from {business} where code = ? and [Type] = '5'", run.Glcode);
    if (Rules().HasSpecified())
        Label5 = "Specified Business u/s 35AD";
    cmd5.visible = lbl5.visible = !Rules().HasSpecified();
    lbl5P.visible = run.GlLarge && lbl5.visible;
    CmdSp.visible = LblSp.visible = Rules().HasSpecified();
}

void frmbusiness::CloseExemptShares()
{
    if (Rules().ExemptsShares()) {
        const Recordset exempt = run.company.Query(
            "select code from {misc_items} where code = ? and ([Type] = 'SPRO' or [Type] = 'SAOP')", run.Glcode);
        if (exempt.Empty())
            cmd7.enabled = false;
        else
            boxes().Show(
                {"Please remove figure from Remu./Intt from AOP/BOI and partnership firm and fill it in exempt "
                 "income field of Normal Business",
                 ""});
    }
    Txt6.enabled = Txt7.enabled = false;
}

void frmbusiness::ShowIncomeUnderSection11()
{
    if (!IsTrust(run.Glstatus))
        return;
    const auto stored = [&](std::string_view type) {
        return run.balance.Scalar("select amt1 from {qelgeneral} where code = ? and [Type] = ?", run.Glcode, type);
    };
    if (stored("CHERI").Number() != 1)
        return;
    LblSec11.visible = TxtSec11.visible = true;
    if (const Value amount = stored("SEC(11)4"); !amount.IsNull())
        TxtSec11 = Amount(amount.Number());
}

void frmbusiness::ShowLines()
{
    const LineSums sums(run);
    const bool isFirm = Rules().ShowsPartnerLines();
    Txt6.visible = Txt7.visible = !isFirm;
    lblna1.visible = lblna2.visible = isFirm;
    Txt6 = "0.00";
    Txt7 = "0.00";
    const std::pair<BusinessKind, TextControl*> summed[] = {
        {kNormal, &lbl1}, {kSpeculation, &lbl2}, {kSpecified, &LblSp}, {kFirmIncome, &Txt6}, {kAopShare, &Txt7}};
    for (const auto& [kind, line] : summed)
        ShowSum(*line, sums.Of(TypeOf(kind)).net);

    const std::pair<BusinessKind, Label*> presumptive[] = {
        {kPresumptive44AD, &lbl3}, {kProfession44ADA, &LblADA}, {kTransport44AE, &lbl4}, {kRetail44AF, &lbl5}};
    for (const auto& [kind, line] : presumptive) {
        if (kind == kRetail44AF && !Rules().Has44AF()) // lines that a run that stores nothing has not deleted
            continue;
        const KindSums kindSums = sums.Of(TypeOf(kind));
        ShowSum(*line, PresumptiveIncome(kindSums.net.value_or(0), kindSums.net44));
    }
}

/// Written by the suite for the assessee as a whole, so a minor's run sees it too.
void frmbusiness::ShowAuditAdjustment()
{
    ShowSum(Label27, Sum(run.company.Scalar(
                         "select sum(net) as [total] from {business} where code = ? and [Type] = '9'", run.Glcode)));
}

void frmbusiness::ShowCommission()
{
    lbllic = "0.00";
    if (run.GLminor != 0)
        return;
    const Recordset rows =
        run.company.Query("select [Type], amt1, amt2, amt3, amt4 from {business1} where code = ? and " +
                              std::string(kIsCommission) + std::string(run.company.dialect().insertionOrder),
                          run.Glcode);
    for (const Row row : rows) {
        const std::string type = Upper(row["Type"].Text());
        double amounts = row["amt1"].Number();
        if (type == "LIC")
            amounts += row["amt2"].Number() + row["amt3"].Number() + row["amt4"].Number();
        lbllic = AfterCommissionRow(lbllic.text(), type, amounts);
    }
}

void frmbusiness::AddUp()
{
    double total = 0;
    for (const TextControl* line : std::initializer_list<const TextControl*>{
             &lbl1, &lbl2, &LblSp, &lbl3, &LblADA, &lbl4, &lbl5, &Txt6, &Txt7, &lbllic, &Label27})
        total += Val(*line);
    lbltotal = Amount(total);
}

/// The suite stores a loss as a negative figure.
void frmbusiness::ShowSetOff()
{
    if (run.GLminor == 0)
        ShowSum(lblloss,
                Sum(run.company.Scalar("select sum(loss) as [total] from {business} where code = ? and [Type] = '0'",
                                       run.Glcode)));
}

void frmbusiness::AddUpAfterPartners()
{
    lblinc = Amount(Val(lbltotal) - Val(partners.txtlesspart1) - Val(partners.txtlesspart2));
    lbllast = Amount(Val(lblinc) + Val(lblloss));
}

void frmbusiness::LockWhenLocked()
{
    if (run.GLlock == 0)
        return;
    for (Control* control : controls())
        if (dynamic_cast<cmd*>(control) || dynamic_cast<txtn*>(control))
            control->enabled = false;
    CmdBack.enabled = true;
}

void frmbusiness::ShowPreviousYear()
{
    if (!run.GlLarge)
        return;
    const Recordset head =
        run.balance.Query("select * from {qelgeneral} where code = ? and [Type] = 'BUSI'", run.GlPrCode);
    if (head.Empty())
        return;
    const std::pair<std::string_view, Label*> columns[] = {
        {"amt1", &lbl1P},
        {"amt2", &lbl2P},
        {"amt3", &lbl3P},
        {"amt4", &lbl4P},
        {"amt5", &lbl5P},
        {"amt6", &txt6P},
        {"amt7", &txt7P},
        {"amt8", &lbllicP},
        {"amt9", &lbltotalP},
        {"Amt10", &partners.txtlesspart1P},
        {"amt11", &partners.txtlesspart2P},
        {"amt12", &lblincP},
        {"amt13", &lbllossP},
        {"amt14", &lbllastP},
    };
    for (const auto& [column, line] : columns)
        *line = Amount(head.First()[column].Number());
    NameOthersOfPreviousYear();
}

/// Section 35AD, section 44ADA and the audit adjustment reach the stored head inside its total only.
void frmbusiness::NameOthersOfPreviousYear()
{
    double others = Val(lbltotalP);
    for (const Label* line : {&lbl1P, &lbl2P, &lbl3P, &lbl4P, &lbl5P, &txt6P, &txt7P, &lbllicP})
        others -= line->visible ? Val(*line) : 0;
    lblothersP = Amount(others);
    lblothers = Rules().HasSpecified() ? "of which 35AD and others" : "of which audit adjustment";
    lblothers.visible = lblothersP.visible = Val(lblothersP) != 0;
}

} // namespace pgbp
