#include "computation/line_header.h"

#include "records/deletion.h"
#include "records/keys.h"
#include "records/used_texts.h"
#include "records/working_copies.h"
#include "services/format.h"
#include "services/text.h"
#include "store/schema.h"

#include <algorithm>

namespace pgbp {

LineHeader::LineHeader(Screen& form)
    : Text1(form, "Text1"), lbldescr(form, "lbldescr", "Description :"), txtdescr1(form, "txtdescr1"),
      txtdescr2(form, "txtdescr2"), CmdPNL(form, "CmdPNL", "&P && L Account"),
      lblpnl(form, "lblpnl", "Net Profit as per P && L Account :"), txtpnl(form, "txtpnl"),
      CmdSave(form, "CmdSave", "&Save"), CmdDel(form, "CmdDel", "&Delete"), CmdBack(form, "CmdBack", "&Back"),
      cmdr(form, "cmdr", "&R"), run_(form.run), form_(form)
{
    Text1.visible = false;
    txtdescr1.maxLength = ColumnWidth("company", "business", "name1");
    txtdescr2.maxLength = ColumnWidth("company", "business", "name2");
    CmdSave.isDefault = true;
    CmdPNL.visible = false;
    CmdPNL.onClick = [this] { OpenStatement(); };
    cmdr.onClick = [this] { run_.screens.ShowModal(screens::frmReminder); };
}

void LineHeader::Open(const LineOpening& opening)
{
    form_.caption = opening.caption;
    openedFrames_.clear();
    openedLists_ = {};
    attempted_ = 0;
    TakeStored(opening.business);
    txtpnl = Amount(Stored("PNL").Number());
    const UsedTexts used = TextsUsedInLines(run_);
    txtdescr1.SetOffers(used.name1);
    txtdescr2.SetOffers(used.name2);
}

void LineHeader::Opened(const std::vector<const Frame*>& frames)
{
    if (!openedFrames_.empty())
        return;
    for (const Frame* shown : frames) {
        openedFrames_.push_back({shown, {}});
        openedFrames_.back().texts.Remember(*shown);
    }
}

bool LineHeader::Altered() const
{
    return std::any_of(openedFrames_.begin(), openedFrames_.end(),
                       [](const OpenedFrame& opened) { return opened.texts.DifferFrom(*opened.shown); }) ||
           AsComparedText(ReadWork(run_)) != AsComparedText(openedLists_);
}

std::string LineHeader::Name() const { return Trim(txtdescr1.text() + ' ' + txtdescr2.text()); }

void LineHeader::ShowWayToStatement()
{
    txtpnl.enabled = !ProfitIsOfStatement();
    CmdPNL.visible = ProfitIsOfStatement();
}

/// A line that the statement has stored goes on as a stored one, with what is entered beside it.
void LineHeader::OpenStatement()
{
    run_.GLrep = run_.FormCheckDone ? "NEWPNL" : "PNL";
    run_.screens.Show(StatementScreen(), {.sno = isEdit_ ? Sno() : 0,
                                          .descr1 = txtdescr1.text(),
                                          .descr2 = txtdescr2.text(),
                                          .left = [this](const auto& business) { TakeStored(business); }});
}

ScreenName<StatementOpening> LineHeader::StatementScreen() const
{
    return run_.FormCheckDone ? screens::FrmbspnlINDAS : screens::FrmbspnlPGBP;
}

void LineHeader::TakeStored(const std::optional<Record>& business)
{
    isEdit_ = business.has_value();
    business_ = business.value_or(Record());
    Text1 = isEdit_ ? "Edit" : "Add";
    CmdDel.enabled = isEdit_;
    if (txtdescr1.text().empty() && txtdescr2.text().empty()) {
        txtdescr1 = Stored("name1").Text();
        txtdescr2 = Stored("name2").Text();
    }
}

bool LineHeader::RefusesSave(bool nothingEntered)
{
    if (nothingEntered) {
        run_.Inform("Nothing to save....");
        return true;
    }
    return LacksDescription(form_, txtdescr1, txtdescr2);
}

bool LacksDescription(Screen& form, txt& first, const txt& second)
{
    if (!first.text().empty() || !second.text().empty())
        return false;
    form.run.Show("Description can not be left blank...", "Infromation", Icon::Information);
    form.SetFocus(first);
    return true;
}

/// The number of the row to write over. A save whose commit was reported as failed may have reached the file all the
/// same: a new line that stands there already is written over, not a second time.
std::optional<double> LineHeader::StoredNumber() const
{
    if (isEdit_)
        return Sno();
    const bool stands =
        attempted_ != 0 &&
        !run_.company
             .Query("select code from {business} where code = ? and sno = ? and name1 = ? and name2 = ?", run_.Code(),
                    attempted_, txtdescr1.text(), txtdescr2.text())
             .Empty();
    return stands ? std::optional(attempted_) : std::nullopt;
}

double LineHeader::WriteRow(std::optional<std::string_view> type, std::vector<Field> row, const Transaction& proof)
{
    row.insert(row.end(), {{"name1", txtdescr1.text()}, {"name2", txtdescr2.text()}});
    if (type)
        row.push_back({"type", *type});
    if (run_.GLminor != 0)
        row.push_back({"Minor", run_.GLminor});
    const std::optional<double> stored = StoredNumber();
    double sno = stored.value_or(0);
    if (!stored || !UpdateLine(run_, sno, row, proof))
        sno = attempted_ = AddLine(run_, std::move(row), proof);
    run_.company.Delete("from {business1} where code = ? and sno = ?", run_.Code(), sno);
    return sno;
}

bool LineHeader::Delete()
{
    const bool sure = run_.Show("Do you really want to delete this record ?", "Deletion", Icon::Question,
                                Buttons::YesNo, Answer::No) == Answer::Yes;
    if (!sure)
        return false;
    DeleteLine(run_, static_cast<BusinessKind>(run_.GlBusinessKind), Sno());
    if (run_.deletion)
        form_.notice = run_.deletion->name + " deleted; Ctrl+Z brings it back";
    return true;
}

} // namespace pgbp
