#include "computation/line_header.h"

#include "records/keys.h"
#include "services/format.h"
#include "store/schema.h"

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
    cmdr.onClick = [this] { run_.screens.ShowModal("frmReminder"); };
}

void LineHeader::Open(const Opening& opening)
{
    isEdit_ = opening.mode == Mode::Edit;
    business_ = opening.business;
    Text1 = isEdit_ ? "Edit" : "Add";
    CmdDel.enabled = isEdit_;
    txtdescr1 = Stored("name1").Text();
    txtdescr2 = Stored("name2").Text();
    txtpnl = Amount(Stored("PNL").Number());
}

void LineHeader::ShowWayToStatement()
{
    txtpnl.enabled = !ProfitIsOfStatement();
    CmdPNL.visible = ProfitIsOfStatement();
}

void LineHeader::OpenStatement() const
{
    run_.GlLineDescr1 = txtdescr1.text();
    run_.GlLineDescr2 = txtdescr2.text();
    run_.GlLineSno = isEdit_ ? Sno() : 0;
    run_.GLrep = run_.FormCheckDone ? "NEWPNL" : "PNL";
    run_.screens.Show(run_.FormCheckDone ? "FrmbspnlINDAS" : "FrmbspnlPGBP");
}

bool LineHeader::RefusesSave(bool nothingEntered)
{
    if (nothingEntered) {
        run_.Inform("Nothing to save....");
        return true;
    }
    if (!txtdescr1.text().empty() || !txtdescr2.text().empty())
        return false;
    run_.Show("Description can not be left blank...", "Infromation", Icon::Information);
    form_.SetFocus(txtdescr1);
    return true;
}

/// False when another user deleted the row meanwhile.
bool LineHeader::Update(double sno, std::span<const Field> fields) const
{
    std::string columns;
    std::vector<Value> values;
    for (const Field& field : fields) {
        columns.append(columns.empty() ? "[" : ", [").append(field.column).append("] = ?");
        values.push_back(field.value);
    }
    values.emplace_back(run_.Code());
    values.emplace_back(sno);
    return run_.company.ExecuteBound("update {business} set " + columns + " where code = ? and sno = ?", values) > 0;
}

double LineHeader::WriteRow(std::optional<std::string_view> type, std::vector<Field> row) const
{
    row.insert(row.end(), {{"name1", txtdescr1.text()}, {"name2", txtdescr2.text()}});
    if (type)
        row.push_back({"type", *type});
    if (run_.GLminor != 0)
        row.push_back({"Minor", run_.GLminor});
    double sno = Sno();
    if (!isEdit_ || !Update(sno, row)) {
        sno = NextSno(run_);
        row.insert(row.end(), {{"code", run_.Code()}, {"SNO", sno}});
        run_.company.Insert("business", row);
    }
    run_.company.Delete("from {business1} where code = ? and sno = ?", run_.Code(), sno);
    return sno;
}

bool LineHeader::Delete()
{
    const bool sure = run_.Show("Do you really want to delete this record ?", "Deletion", Icon::Question,
                                Buttons::YesNo, Answer::Yes) == Answer::Yes;
    if (sure)
        DeleteLine(run_, static_cast<BusinessKind>(run_.GlBusinessKind), Sno());
    return sure;
}

} // namespace pgbp
