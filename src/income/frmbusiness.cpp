#include "income/frmbusiness.h"

#include "entry/checks.h"
#include "records/limits.h"
#include "records/rows_of_type.h"
#include "services/fault.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "startup/status.h"

#include <utility>

namespace pgbp {

frmbusiness::frmbusiness(Run& itsRun) : Screen(itsRun, "frmbusiness", "Profits & Gains from Business or Profession")
{
    StartFromZero();
    const bool isFirm = Rules().ShowsPartnerLines();
    for (Control* control :
         std::initializer_list<Control*>{&partners.lblpart1, &partners.lblpart2, &partners.txtlesspart1,
                                         &partners.txtlesspart2, &partners.cmdmax, &lblafter, &lblinc})
        control->visible = isFirm;
    cmd9.visible = Rules().May44ADA();
    Label29.visible = LblADA.visible = Rules().Shows44ADA();
    LblSec11.visible = TxtSec11.visible = false;
    lblna1.visible = lblna2.visible = lblothers.visible = lblothersP.visible = false;
    for (Control* previous :
         std::initializer_list<Control*>{&lblPrevious, &lblThis, &lbl1P, &lbl2P, &lbl3P, &lbl4P, &lbl5P, &txt6P, &txt7P,
                                         &lbllicP, &lbltotalP, &lbllossP, &lbllastP, &cmdReport})
        previous->visible = run.GlLarge;
    for (Control* previous :
         std::initializer_list<Control*>{&partners.txtlesspart1P, &partners.txtlesspart2P, &lblincP})
        previous->visible = run.GlLarge && isFirm;
    LayOut();
    Wire();
}

frmbusiness::~frmbusiness() { run.deletingLine.Remove(deletingListener_); }

void frmbusiness::StartFromZero()
{
    recomputed_ = false;
    for (TextControl* figure : std::initializer_list<TextControl*>{
             &lbl1, &lbl2, &LblSp, &lbl3, &LblADA, &lbl4, &lbl5, &Txt6, &Txt7, &lbllic, &Label27, &lbltotal,
             &partners.txtlesspart1, &partners.txtlesspart2, &lblinc, &lblloss, &lbllast, &TxtSec11})
        *figure = "0.00";
}

void frmbusiness::LayOut()
{
    const SummaryRules rules = Rules();
    const bool isFirm = rules.ShowsPartnerLines();
    std::vector<LayoutRow> rows = {
        {{nullptr, nullptr, &lblThis, &lblPrevious}, RowStyle::Heading},
        {{&cmd1, &Label1, &lbl1, &lbl1P}},
        {{&cmd2, &Label2, &lbl2, &lbl2P}},
    };
    // the caption Label5 serves section 44AF, and from 2012 section 35AD further up
    if (rules.HasSpecified())
        rows.push_back({{&CmdSp, &Label5, &LblSp}});
    rows.push_back({{&cmd3, &Label3, &lbl3, &lbl3P}});
    rows.push_back({{&cmd9, &Label29, &LblADA}});
    rows.push_back({{&cmd4, &Label4, &lbl4, &lbl4P}});
    if (!rules.HasSpecified())
        rows.push_back({{&cmd5, &Label5, &lbl5, &lbl5P}});
    const std::vector<LayoutRow> more = {
        {{&cmd6, &Label6, isFirm ? static_cast<Control*>(&lblna1) : &Txt6, &txt6P}},
        {{&cmd7, &Label7, isFirm ? static_cast<Control*>(&lblna2) : &Txt7, &txt7P}},
        {{&cmdlic, &Label8, &lbllic, &lbllicP}},
        {{nullptr, &Label26, &Label27}},
        {{nullptr, &Label9, &lbltotal, &lbltotalP}, RowStyle::Total},
        {{nullptr, nullptr, &lblothers, &lblothersP}},
        {{nullptr, &partners.lblpart1, &partners.txtlesspart1, &partners.txtlesspart1P}},
        {{&partners.cmdmax, &partners.lblpart2, &partners.txtlesspart2, &partners.txtlesspart2P}},
        {{nullptr, &lblafter, &lblinc, &lblincP}, RowStyle::Total},
        {{nullptr, &Label10, &lblloss, &lbllossP}},
        {{nullptr, &Label11, &lbllast, &lbllastP}, RowStyle::Final},
        {{nullptr, &LblSec11, &TxtSec11}},
    };
    rows.insert(rows.end(), more.begin(), more.end());
    framain.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Previous,
                             LayoutColumn::Button},
                 .rows = std::move(rows),
                 .buttonsLeft = {&CmdGST, &cmdReport}});
    cmdReport.toolTip = "The computation of the preceding year on paper; Ctrl+P: of this year";
    CmdBack.isDefault = true;
    if (run.GLminor != 0)
        CmdBack.toolTip = run.IncomeOf() + ": the head of income is written with the child's figures alone";
    else if (run.GLlock != 0)
        CmdBack.toolTip = "Nothing can be keyed; the head of income is written anew";
    bar = {&CmdBack};
}

void frmbusiness::Wire()
{
    cmd1.onClick = [this] {
        run.GlBusinessKind = kNormal;
        run.GLrep = "ASDF"; // the remuneration is refreshed when the preparer comes back
        lines.Open(kNormal);
    };
    cmd2.onClick = [this] {
        run.GlBusinessKind = kSpeculation;
        lines.Open(kSpeculation);
    };
    CmdSp.onClick = [this] {
        run.GlBusinessKind = kSpecified;
        lines.Open(kSpecified);
    };
    cmd3.onClick = [this] { OpenOneLine(kPresumptive44AD, Label3.text()); };
    cmd4.onClick = [this] { OpenTransport(); };
    cmd5.onClick = [this] { OpenRetail(); };
    cmd6.onClick = [this] { OpenFirms(); };
    cmd7.onClick = [this] { OpenAop(); };
    cmd9.onClick = [this] { OpenProfession(); };
    cmdlic.onClick = [this] { OpenCommission(); };
    CmdGST.onClick = [this] { run.screens.Show(screens::FrmGST); };
    cmdReport.onClick = [this] { ReportOnPreviousYear(); };
    imgPrint.onClick = [this] { ReportOn(run.Glcode, run.Glyear); };
    framain.onPrint = [this] { Click(imgPrint); };
    CmdBack.onClick = [this] { Back(); };
    cmdr.onClick = [this] { run.screens.ShowModal(screens::frmReminder, {}, [this] { Activate(); }); };
    partners.cmdmax.onClick = [this] { CalculateMaximum(); };
    partners.txtlesspart1.onChange = partners.txtlesspart2.onChange = [this] { AddUpAfterPartners(); };
    framain.onUndo = [this] { BringBack(); };
    deletingListener_ = run.deletingLine.Add([this] { StartFromZero(); });
    TxtSec11.onLostFocus = [this] { StoreIncomeUnderSection11(); };
}

/// Where the store fails no one knows what it holds; the figures are read anew then, before they are written.
void frmbusiness::CalculateMaximum()
{
    const bool recomputed = std::exchange(recomputed_, false);
    const bool isChanged = partners.CalculateMaximum();
    recomputed_ = recomputed;
    if (isChanged)
        TellSaved("Remuneration to partners", Val(partners.txtlesspart2));
}

bool frmbusiness::RefuseMinor() const
{
    if (run.GLminor != 0)
        run.Inform("This Option is not available for minors.");
    return run.GLminor != 0;
}

void frmbusiness::OpenOneLine(BusinessKind kind, const std::string& screenCaption)
{
    run.GlBusinessKind = kind;
    if (RefuseMinor())
        return;
    run.GLrep = "ASDF";
    LineOpening opening{.caption = screenCaption};
    const Recordset line = run.company.Query("select * from {business} where code = ? and [Type] = ?" +
                                                 std::string(run.company.dialect().insertionOrder),
                                             run.Glcode, TypeOf(kind));
    if (!line.Empty())
        opening.business = Record(line.First());
    run.screens.Show(screens::frmbusinesscal, opening);
}

void frmbusiness::OpenRetail()
{
    run.GlBusinessKind = kRetail44AF;
    if (!Rules().Has44AF()) {
        boxes().Show({"This section is now removed...", ""});
        return;
    }
    OpenOneLine(kRetail44AF, "Retail Trading u/s 44AF");
}

void frmbusiness::OpenProfession()
{
    run.GlBusinessKind = kProfession44ADA;
    if (!Rules().Offers44ADA())
        return run.Inform("Section 44ADA is applicable for Y 2017-18");
    OpenOneLine(kProfession44ADA, Label29.text());
}

void frmbusiness::OpenTransport()
{
    run.GlBusinessKind = kTransport44AE;
    if (!Rules().VehiclesByScreen()) {
        PlantVehicleLimits2015(run);
        return OpenOneLine(kTransport44AE, "Transport Business u/s 44AE");
    }
    if (!RefuseMinor())
        run.screens.Show(screens::Frm44AENew);
}

void frmbusiness::OpenFirms()
{
    run.GlBusinessKind = kFirmIncome;
    if (IsFirm(run.Glstatus))
        return ShowNotApplicable(run, "Remu./Intt from Partnership Firm", "Other than Partnership Firm");
    Rules().FirmsByScreen() ? run.screens.Show(screens::FrmFirm) : shares.Open(kFirmShares);
}

void frmbusiness::OpenAop()
{
    run.GlBusinessKind = kAopShare;
    if (IsFirm(run.Glstatus))
        return ShowNotApplicable(run, "Share from AOP/BOI", "Individuals & HUFs");
    shares.Open(kAopShares);
}

void frmbusiness::OpenCommission()
{
    if (!RefuseMinor())
        commission.Open();
}

void frmbusiness::StoreIncomeUnderSection11()
{
    const double income = Val(TxtSec11);
    const RowsOfType rows = ScheduleCells(run, "SEC(11)4");
    const Recordset stored = rows.Read("amt1");
    if (stored.Size() == 1 && stored.First().At(0).Number() == income)
        return;
    Transaction transaction({run.balance});
    rows.Replace({{"amt1", income}}, transaction);
    transaction.Commit();
    if (!stored.Empty() || income != 0)
        TellSaved("Business Income as shown u/s 11(4)", income);
}

void frmbusiness::BringBack()
{
    if (!run.deletion)
        return;
    const Deletion deletion = *run.deletion;
    StartFromZero();
    deletion.bringBack();
    run.deletion.reset();
    run.GLrep = "ASDF"; // the remuneration is calculated as after a line was open
    Activate();
    notice = deletion.name + " is back, with all its rows";
}

void frmbusiness::Back()
{
    if (Frame* card = Card())
        return card->onEscape();
    Close();
}

/// In a side frame that is up.
bool frmbusiness::Altered() const { return commission.Altered() || shares.Altered(); }

/// A store that fails for good does not keep the preparer here: he may leave the old head of income as it stands.
void frmbusiness::Close()
{
    if (!MayDiscard(run, Altered()))
        return;
    try {
        if (!recomputed_) // figures of a recompute that failed must not become the head of income
            Activate();
        if (!run.readOnly)
            StoreHeadOfIncome();
    } catch (const std::exception& error) {
        run.Log(error);
        const std::string question = "\n\nThe head of income that was written before stands. Do you want to leave "
                                     "without writing it anew ?";
        if (run.Show(PreparersWords(error) + question, "Question", Icon::Critical, Buttons::YesNo, Answer::No) !=
            Answer::Yes)
            return;
    }
    run.screens.End();
}

/// The head of income as the suite's computation and return programs read it.
std::vector<Field> frmbusiness::HeadOfIncome() const
{
    return {{"amt1", Val(lbl1)},
            {"amt2", Val(lbl2)},
            {"amt3", Val(lbl3)},
            {"amt4", Val(lbl4)},
            {"amt5", Val(lbl5)},
            {"amt6", Val(Txt6)},
            {"amt7", Val(Txt7)},
            {"amt8", Val(lbllic)},
            {"amt9", Val(lbltotal)},
            {"Amt10", Val(partners.txtlesspart1)},
            {"amt11", Val(partners.txtlesspart2)},
            {"amt12", Val(lblinc)},
            {"amt13", Val(lblloss)},
            {"amt14", Val(lbllast)}};
}

void frmbusiness::StoreHeadOfIncome() const
{
    Transaction transaction({run.balance});
    ScheduleCells(run, "BUSI").Replace(HeadOfIncome(), transaction);
    transaction.Commit();
}

/// The report shows the year of the comparative column, so the record goes out under that year's code.
void frmbusiness::ReportOnPreviousYear()
{
    const auto letter = run.GlPrCode.find('r'); // the year stands behind it
    ReportOn(run.GlPrCode, letter == std::string::npos ? "" : run.GlPrCode.substr(letter + 1));
}

void frmbusiness::ReportOn(const std::string& code, const std::string& year)
{
    run.GLrep = "PGBP";
    HandOver record = run;
    record.Glcode = code;
    record.Glyear = year;
    HandOverTo(run, record, "VornRep.exe");
}

} // namespace pgbp
