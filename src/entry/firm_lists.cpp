#include "entry/firm_lists.h"

namespace pgbp {

FirmLists::FirmLists(Screen& form, FirmListsUse use)
    : Fratemp(form, "Fratemp", "Firm's Return"),
      DBFirm(form, "DBFirm", {{use.firmHeading, GridColumnKind::Text}, {"Code", GridColumnKind::Hidden}}),
      DbPart(form, "DbPart", use.partnerColumns),
      lblhintfirm(form, "lblhintfirm", "Double Click to select", LabelLook::Hint),
      back(form, use.back, use.backCaption), form_(form), use_(std::move(use))
{
    Fratemp.Lay({.columns = {LayoutColumn::Field},
                 .rows = {{{&DBFirm}}, {{&DbPart}}, {{&lblhintfirm}}},
                 .buttonsRight = {&back}});
    DBFirm.onDoubleClick = [this](int row) { ChooseFirm(static_cast<std::size_t>(row) - 1); };
    DbPart.onDoubleClick = [this](int row) { ChoosePartner(static_cast<std::size_t>(row) - 1); };
    Fratemp.onEscape = back.onClick = [this] { StepBack(); };
}

void FirmLists::Open(std::vector<FirmReturn> firms)
{
    const Run& run = form_.run;
    if (firms.empty()) {
        run.Show("No firm are entered for the assessment year - " + run.Glyear, "Infoamation", Icon::Information);
        return;
    }
    firms_ = std::move(firms);
    std::vector<std::vector<std::string>> rows;
    for (const FirmReturn& firm : firms_)
        rows.push_back({firm.name, firm.code});
    DBFirm.SetRows(std::move(rows));
    DBFirm.SetCurrentRow(1);
    DbPart.Clear();
    form_.Raise(Fratemp, DBFirm);
}

void FirmLists::Close()
{
    if (Fratemp.visible)
        form_.Lower(Fratemp);
}

void FirmLists::ChooseFirm(std::size_t at)
{
    firm_ = at;
    partners_ = PartnersOfFirm(form_.run, firms_[at].code);
    if (partners_.empty())
        return form_.run.Inform("No data of any partner exists....");
    std::vector<std::vector<std::string>> rows;
    for (const PartnerShare& partner : partners_)
        rows.push_back(use_.cells(partner));
    DbPart.SetRows(std::move(rows));
    DbPart.SetCurrentRow(1);
    form_.SetFocus(DbPart);
}

void FirmLists::ChoosePartner(std::size_t at)
{
    Close();
    use_.chosen(firms_[firm_], partners_[at]);
}

/// From the partners to the firms, and from those out of the frame.
void FirmLists::StepBack()
{
    if (DbPart.Rows() == 0)
        return Close();
    DbPart.Clear();
    form_.SetFocus(DBFirm);
}

} // namespace pgbp
