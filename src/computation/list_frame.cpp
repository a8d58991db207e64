#include "computation/list_frame.h"

#include "records/working_copies.h"
#include "services/format.h"

#include <utility>

namespace pgbp {
namespace {

std::vector<GridColumn> GridColumns(const std::vector<ListColumn>& columns)
{
    std::vector<GridColumn> headed;
    headed.reserve(columns.size());
    for (const ListColumn& column : columns)
        headed.push_back(column.shown);
    return headed;
}

/// A number in the form of its empty field: "0" or "0.00".
std::string Shown(const ListColumn& column, const Value& value)
{
    if (!column.IsNumber())
        return value.Text();
    return column.blank == "0" ? value.Text() : Amount(value.Number());
}

} // namespace

ListFrame::ListFrame(Screen& form, const Names& names, std::vector<ListColumn> columns)
    : panel(form, names.panel), rows(form, names.rows, GridColumns(columns)), add(form, names.add, "&Add"),
      save(form, names.save, "&Save"), back(form, names.back, "&Cancel"), run_(form.run), form_(form),
      columns_(std::move(columns))
{
    save.isDefault = true;
    panel.onEscape = back.onClick = [this] { Back(); };
    add.onClick = [this] { Add(); };
    save.onClick = [this] { Save(); };
    rows.onDoubleClick = [this](int row) { TakeBack(row); };
}

void ListFrame::Open(const AdjustmentList& list)
{
    OpenWorkList(run_, list.type);
    list_ = &list;
    panel.caption = list.caption.text();
    Prepare(list);
    ClearFields();
    ShowRows();
    ShowInPlaceOf(list.below, true);
    form_.SetFocus(columns_.front().field);
}

void ListFrame::Back()
{
    DropWorkList(run_);
    const AdjustmentList& list = *std::exchange(list_, nullptr);
    ClearFields();
    ShowInPlaceOf(list.below, false);
    left();
    form_.SetFocus(list.button);
}

void ListFrame::ShowInPlaceOf(frame* below, bool shows)
{
    panel.visible = shows;
    if (below)
        below->visible = !shows;
}

void ListFrame::Add()
{
    for (const ListCheck& check : checks)
        if (check.fails(list_->type)) {
            run_.Inform(check.message);
            form_.SetFocus(*check.focus);
            return;
        }
    std::vector<Field> fields{{"code", run_.Code()}};
    for (const ListColumn& column : columns_)
        fields.push_back({column.column, column.Entered()});
    if (computed)
        for (Field& field : computed())
            fields.push_back(std::move(field));
    run_.qeltemp.Insert("temp", fields);
    ClearFields();
    ShowRows();
    form_.SetFocus(columns_.front().field);
}

/// The row is found by its contents, so rows that are alike go together.
void ListFrame::TakeBack(int row)
{
    const Row taken = shown_[static_cast<std::size_t>(row) - 1];
    std::string condition = "from {temp} where code = ?";
    std::vector<Value> values{run_.Code()};
    for (const ListColumn& column : columns_) {
        const Value& value = taken[column.column];
        column.field.Set(Shown(column, value));
        if (!column.findsRow)
            continue;
        condition += " and " + std::string(column.column) + (value.IsNull() ? " is null" : " = ?");
        if (!value.IsNull())
            values.push_back(value);
    }
    run_.qeltemp.ExecuteBound(std::string(run_.qeltemp.dialect().DeleteWord) + condition, values);
    ShowRows();
    form_.SetFocus(columns_.front().field);
}

void ListFrame::Save()
{
    Transaction transaction({run_.qeltemp});
    SaveWorkList(run_, list_->type);
    if (list_->storeAlong)
        list_->storeAlong();
    transaction.Commit();
    Back();
}

void ListFrame::ClearFields()
{
    for (const ListColumn& column : columns_)
        column.field.Set(column.blank);
}

void ListFrame::ShowRows()
{
    shown_ = run_.qeltemp.Query(
        "select * from {temp} where code = ?" + std::string(run_.qeltemp.dialect().insertionOrder), run_.Code());
    std::vector<std::vector<std::string>> texts;
    for (const Row row : shown_) {
        std::vector<std::string> cells;
        for (const ListColumn& column : columns_)
            cells.push_back(Shown(column, row[column.column]));
        texts.push_back(std::move(cells));
    }
    rows.SetRows(std::move(texts));
}

} // namespace pgbp
