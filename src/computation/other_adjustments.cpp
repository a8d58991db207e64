#include "computation/other_adjustments.h"

#include "computation/line_rules.h"

namespace pgbp {

OtherAdjustments::OtherAdjustments(Screen& form, OtherAdjustmentsUse use)
    : fra3(form, "fra3", "Other Adustments"), cmd564(form, "cmd564", "&Deemed Income"),
      lbl564c(form, "lbl564c", "Deemed Income u/s 33AB, 33ABA, 35ABB, 41, 72A, 80HHD, 80IA etc. :"),
      lbl564(form, "lbl564", "0.00", LabelLook::Amount), cmd570(form, "cmd570", "Section &44B"),
      lbl570c(form, "lbl570c", "Adj. on accoount of Sec. 44B, 44BB, 44BBA && 44BBB :"),
      lbl570(form, "lbl570", "0.00", LabelLook::Amount), cmd568(form, "cmd568", "&Allowances"),
      lbl568c(form, "lbl568c", "Allowances u/s 35A, 35AB, 35ABB, 35AC, 35D, 35E etc. :"),
      lbl568(form, "lbl568", "0.00", LabelLook::Amount), Cmd35(form, "Cmd35", "&Scientific Research"),
      Lbl35c(form, "Lbl35c", "Deduction under section 35 (Scientific research) :"),
      Lbl35(form, "Lbl35", "0.00", LabelLook::Amount), cmdbackother(form, "cmdbackother", "&Back"),
      section35(form, use.balance), section10abc(form, use.balance), run_(form.run), form_(form), use_(std::move(use))
{
    LayOut();
    Wire();
    const bool hasSection35 = RulesOf(run_).HasSection35();
    Cmd35.visible = Lbl35c.visible = Lbl35.visible = hasSection35;
}

void OtherAdjustments::LayOut()
{
    fra3.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Caption, LayoutColumn::Amount},
              .rows = {{{&cmd564, &lbl564c, &lbl564}},
                       {{&cmd570, &lbl570c, &lbl570}},
                       {{&cmd568, &lbl568c, &lbl568}},
                       {{&Cmd35, &Lbl35c, &Lbl35}},
                       {{nullptr, &section10abc.chk10abc1}},
                       {{nullptr, &section10abc.chk10abc2}},
                       {.cells = {&section10abc.cmd10abc, &section10abc.lbl10abcc, &section10abc.lbl10abc},
                        .keepsPlace = true}},
              .buttonsRight = {&cmdbackother}});
    cmdbackother.isDefault = true;
}

void OtherAdjustments::Wire()
{
    cmd564.onClick = [this] { use_.openList("564"); };
    cmd570.onClick = [this] { use_.openList("570"); };
    cmd568.onClick = [this] { use_.openList("568"); };
    Cmd35.onClick = [this] { section35.Open(); };
    section10abc.cmd10abc.onClick = [this] { Open10abc(); };
    fra3.onEscape = cmdbackother.onClick = [this] { form_.Lower(fra3); };
    fra3.onLowered = use_.balance;
}

void OtherAdjustments::Open() { form_.Raise(fra3, cmd564); }

void OtherAdjustments::Open10abc()
{
    if (!RulesOf(run_).ListsSections10())
        return use_.openList("10abc");
    section10abc.Open();
}

} // namespace pgbp
