#include "computation/section10abc.h"

#include "entry/control_array.h"
#include "services/format.h"
#include "services/text.h"

namespace pgbp {
namespace {

constexpr int kSections = 8;

} // namespace

Section10abc::Line::Line(Form& form, int itsIndex)
    : index(itsIndex), Lbl10(form, ArrayName("Lbl10", index)), Lbl10_1(form, ArrayName("Lbl10_1", index)),
      LblAmt(form, ArrayName("LblAmt", index), "0.00", LabelLook::Amount),
      Cmd10A(form, ArrayName("Cmd10A", index), "=>")
{
}

void Section10abc::Line::Name(const std::string& itsSection, const std::string& itsDescription)
{
    section = itsSection;
    description = itsDescription;
    Lbl10.ShowData(section);
    Lbl10_1.ShowData(description);
    Cmd10A.toolTip = "Items of section " + section + ": " + description;
}

void Section10abc::Line::Show(bool shows)
{
    for (Control* control : std::initializer_list<Control*>{&Lbl10, &Lbl10_1, &LblAmt, &Cmd10A})
        control->visible = shows;
}

Section10abc::Section10abc(Screen& form, const std::function<void()>& balance)
    : chk10abc1(form, "chk10abc1", "Is Section 10A/10B/10C applicable in your case ?"),
      chk10abc2(form, "chk10abc2", "Have you opted out by filing declaration prescribed u/s 10A(8)/10B(8)/10C(6) ?"),
      lbl10abcc(form, "lbl10abcc", "Less : Amount claimed u/s 10A/10B/10C :"),
      lbl10abc(form, "lbl10abc", "0.00", LabelLook::Amount), cmd10abc(form, "cmd10abc", "Sections 10A/10B/&10C"),
      Fra10abc(form, "Fra10abc", "Deduction under section 10A/B/C"), lblSection(form, "lblSection", "Section"),
      CmdBack10(form, "CmdBack10", "&Back"), run_(form.run), form_(form)
{
    for (int i = 0; i < kSections; ++i) {
        Line& line = lines.emplace_back(form, i);
        line.Cmd10A.onClick = [this, &line] { OpenSection(line); };
    }
    LayOut();
    ApplyQuestions();
    chk10abc1.onClick = chk10abc2.onClick = [this, balance] {
        ApplyQuestions();
        balance();
    };
    CmdBack10.isDefault = true;
    Fra10abc.onLowered = balance;
    Fra10abc.onEscape = CmdBack10.onClick = [this] { form_.Lower(Fra10abc); };
}

void Section10abc::LayOut()
{
    std::vector<LayoutRow> rows = {{{&lblSection}, RowStyle::Heading}};
    for (Line& line : lines)
        rows.push_back({{&line.Lbl10, &line.Lbl10_1, &line.LblAmt, &line.Cmd10A}});
    Fra10abc.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Button},
                  .rows = std::move(rows),
                  .buttonsRight = {&CmdBack10}});
}

/// Opting out is a question only where the sections apply.
void Section10abc::ApplyQuestions()
{
    chk10abc2.enabled = chk10abc1.value;
    cmd10abc.visible = lbl10abcc.visible = lbl10abc.visible = IsClaimed();
}

void Section10abc::Open()
{
    Fill();
    form_.Raise(Fra10abc, lines.front().Cmd10A);
}

void Section10abc::Fill()
{
    NameLines();
    for (const Row row : run_.qeltemp.Query("select sum(amt2) as [TOT], amt4 from {temp1} where code = ? and [Type] = "
                                            "'10ABC' group by amt4",
                                            run_.Code()))
        if (Line* line = LineAt(lines, row["amt4"]))
            line->LblAmt = Amount(row["TOT"].Number());
}

/// Sections beyond those that there is room for are passed over.
void Section10abc::NameLines()
{
    const Recordset sections = run_.tax.Query("select * from {air} where [type] = '10ABC' order by srno");
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool exists = i < sections.Size();
        lines[i].LblAmt = "0.00";
        lines[i].Show(exists);
        if (exists)
            lines[i].Name(sections[i]["code"].Text(), sections[i]["descr"].Text());
    }
}

void Section10abc::OpenSection(const Line& line)
{
    run_.screens.ShowModal(screens::Frm10ABC, {line.index, line.section, line.description}, [this] { Fill(); });
}

} // namespace pgbp
