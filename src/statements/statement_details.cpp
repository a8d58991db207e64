#include "statements/statement_details.h"

#include "services/format.h"
#include "services/text.h"
#include "store/schema.h"

namespace pgbp {

StatementDetails::StatementDetails(Screen& form)
    : form_(form), Frame1(form, "Frame1"), lbldescr(form, "lbldetail", "Description :"), TxtDescr(form, "TxtDescr"),
      lblamt(form, "lblamt", "Amount :"), TxtAmt(form, "TxtAmt"), CmdAdd(form, "CmdAdd", "&Add"),
      Msh1(form, "Msh1", GridColumns(Columns())), lbltotal(form, "lbltotal", "Total :"), TxtSTOT(form, "TxtSTOT"),
      CmdClose(form, "CmdClose", "&Close"), entry_(form, Msh1, CmdAdd, Columns())
{
    LayOut();
    TxtAmt.deci = TxtSTOT.deci = 0;
    TxtSTOT.enabled = false;
    TxtDescr.maxLength = ColumnWidth("balance", "qelgeneral", "name9");
    entry_.blankRowWhenEmpty = true;
    entry_.complete = [this](Item& item) {
        item.serial = std::to_string(slno_);
        if (onAdd)
            onAdd();
    };
    entry_.changed = [this] { TxtSTOT = Rupees(Total()); };
    Frame1.onUndo = [this] { entry_.Undo(); };
    CmdClose.onClick = [this] { Close(); };
    Frame1.onEscape = [this] { entry_.Altered() ? Close() : form_.Lower(Frame1); };
}

std::vector<ItemColumn<StatementDetails::Item>> StatementDetails::Columns()
{
    using enum GridColumnKind;
    return {{.shown = {"Serial", Serial}, .member = &Item::serial},
            {.shown = {"Description", Text}, .member = &Item::description, .field = &TxtDescr},
            {.shown = {"Amount", Amount}, .member = &Item::amount, .field = &TxtAmt, .places = 0}};
}

void StatementDetails::LayOut()
{
    Frame1.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
                .rows = {{{&lbldescr, &TxtDescr}}, {{&lblamt, &TxtAmt, &CmdAdd}}, {{&Msh1}}, {{&lbltotal, &TxtSTOT}}},
                .buttonsRight = {&CmdClose}});
    CmdClose.isDefault = true;
}

void StatementDetails::Open(int slno, const std::string& lineName, const std::vector<DetailEntry>& entries)
{
    slno_ = slno;
    Frame1.caption = lineName;
    std::vector<Item> items;
    items.reserve(entries.size());
    for (const DetailEntry& entry : entries)
        items.push_back({std::to_string(slno), entry.description, entry.amount});
    entry_.Open(std::move(items));
    form_.Raise(Frame1, TxtDescr);
}

double StatementDetails::Total() const
{
    double total = 0;
    for (const Item& item : entry_.items())
        total += item.amount;
    return total;
}

/// An amount keeps its place in the list without a description; nothing at all is no entry.
void StatementDetails::Close()
{
    if (!entry_.Finish())
        return;
    std::vector<DetailEntry> entries;
    for (const Item& item : entry_.items()) {
        const std::string description = Trim(item.description);
        if (!description.empty() || item.amount != 0)
            entries.push_back({description.empty() ? "-" : description, item.amount});
    }
    form_.Lower(Frame1);
    onClose(std::move(entries), Total());
}

} // namespace pgbp
