#pragma once

#include "controls/buttons.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "entry/checks.h"
#include "entry/field_texts.h"
#include "services/dates.h"
#include "services/format.h"
#include "store/value.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace pgbp {

/// A column of a list of items: how the grid shows it, the member of the item that holds it, and the field or tick in
/// which it is entered; none of them where the screen computes it. A column whose member is none shows the running
/// number.
template <typename Item>
struct ItemColumn {
    using Member = std::variant<std::string Item::*, double Item::*, std::optional<double> Item::*, bool Item::*,
                                std::optional<bool> Item::*, std::optional<DateTime> Item::*>;

    GridColumn shown{};
    Member member;
    TextBox* field = nullptr;
    CheckBox* tick = nullptr;
    int places = 2;          ///< of a number: rupees and paise, or 0
    bool tellsApart = false; ///< items that are alike in all such columns are taken back together
    bool inGrid = true;      ///< else it is only a field
    bool stays = false;      ///< its field keeps its text for the next item

    bool IsRunningNumber() const { return member == Member(); }
    bool IsNumber() const { return member.index() == 1 || member.index() == 2; }
    double Number(const Item& item) const
    {
        if (const auto* plain = std::get_if<double Item::*>(&member))
            return item.**plain;
        return (item.*std::get<std::optional<double> Item::*>(member)).value_or(0);
    }
    /// As field and grid show it.
    std::string Text(const Item& item) const
    {
        if (IsNumber())
            return places == 0 ? Value(Number(item)).Text() : Amount(Number(item));
        if (const auto* ticked = std::get_if<bool Item::*>(&member))
            return item.**ticked ? "True" : "False";
        if (const auto* said = std::get_if<std::optional<bool> Item::*>(&member))
            return !(item.**said) ? "" : *(item.**said) ? "1" : "0";
        if (const auto* day = std::get_if<std::optional<DateTime> Item::*>(&member))
            return item.**day ? DayText(*(item.**day)) : "";
        return item.*std::get<std::string Item::*>(member);
    }
    /// Puts what was entered into the item.
    void Take(Item& item) const
    {
        if (field || tick)
            std::visit([&](auto which) { TakeInto(item, which); }, member);
    }
    /// Puts the item into its field. A number that can not be entered now shows as nothing.
    void Give(const Item& item) const
    {
        if (tick)
            tick->value = IsTicked(item);
        else if (field)
            field->Set(IsNumber() && !field->enabled ? Text(Item()) : Text(item));
    }

  private:
    bool IsTicked(const Item& item) const
    {
        const auto* said = std::get_if<std::optional<bool> Item::*>(&member);
        return said ? (item.**said).value_or(false) : item.*std::get<bool Item::*>(member);
    }
    template <typename Which>
    void TakeInto(Item& item, Which which) const
    {
        using Held = std::remove_reference_t<decltype(item.*which)>;
        if constexpr (std::is_same_v<Held, bool> || std::is_same_v<Held, std::optional<bool>>)
            item.*which = tick->value.get();
        else if constexpr (std::is_same_v<Held, std::string>)
            item.*which = field->text();
        else if constexpr (std::is_same_v<Held, std::optional<DateTime>>)
            item.*which = FromDayText(field->text());
        else
            item.*which = Val(*field);
    }
};

/// Items that are entered one at a time: fields, a button that adds, a grid of what was entered, in the order of entry.
/// A double click takes an item back into the fields; added again it stands where it stood. The Delete key removes the
/// marked item and Ctrl+Z brings it back. The owner loads and saves; nothing is stored here.
template <typename Item>
class ItemEntry {
  public:
    ItemEntry(Screen& form, Grid& rows, cmd& add, std::vector<ItemColumn<Item>> columns);
    ItemEntry(const ItemEntry&) = delete;

    std::vector<Check> checks;                    ///< of an item that is added
    std::function<bool(const Item&)> accepts;     ///< what remains to be checked of it: tells and gives false
    std::function<bool(const Item&)> mayTakeBack; ///< none: any item may be taken back and deleted
    std::function<void(Item&)> complete;          ///< fills what no field holds
    std::function<void()> changed;                ///< after the items have changed
    std::function<void(const Item&)> given;       ///< an item, or an empty one, was put into the fields
    /// What stands under the columns; by default the number of items and the sums of the amounts.
    std::function<std::vector<std::string>()> footer;
    bool blankRowWhenEmpty = false;

    /// Shows the items as they are stored, with empty fields.
    void Open(std::vector<Item> items);
    /// Forgets everything.
    void Close()
    {
        Reset({});
        Show(0);
    }
    const std::vector<Item>& items() const { return items_; }
    const std::vector<ItemColumn<Item>>& columns() const { return columns_; }
    /// Puts these in place of the items, or behind them.
    void Replace(std::vector<Item> items);
    void Append(const std::vector<Item>& items);
    /// Puts an item into the fields as if it had been typed.
    void Enter(const Item& item) { Give(item); }
    /// Adds what is in the fields, as the button does. False when a check refuses it.
    bool Add();

    /// Something differs from what was opened, what is typed included.
    bool Altered() const { return Typed() || ItemsWithTakenBack() != opened_; }
    /// Before a save: what is typed is added. False when a check refuses it. An item that was taken back and is not
    /// typed over goes.
    bool Finish();
    /// How many items there are, and which one went because it was taken back and not added again.
    std::string Summary() const;
    void Undo();
    /// From now on the items can be read alone.
    void Lock();
    Control& FirstField() const;

  private:
    /// An item out of the list with its place there.
    struct Removed {
        std::size_t at;
        Item item;
    };

    bool IsFree(std::size_t at) const;
    void TakeBack(std::size_t at);
    void Delete(std::size_t at);
    bool Typed() const;
    Item Entered() const;
    void Give(const Item& item);
    void Clear();
    void Reset(std::vector<Item> items);
    void Change(std::size_t current);
    void Show(std::size_t current);
    std::vector<std::string> CellsOf(int row) const;
    std::string Count() const;
    std::vector<std::string> Totals() const;
    std::vector<std::string> FieldTextsNow() const;
    std::vector<Item> ItemsWithTakenBack() const;
    bool AreAlike(const Item& one, const Item& other) const;
    std::string NameOf(const Item& item) const;

    Screen& form_;
    Grid& rows_;
    cmd& add_;
    const std::vector<ItemColumn<Item>> columns_;
    std::vector<Item> items_;
    std::vector<Item> opened_;
    std::vector<Removed> takenBack_; ///< in the fields; several when items are alike
    std::vector<Removed> deleted_;
    std::vector<std::string> untouched_; ///< the fields as they were filled
};

/// The columns as a grid heads them.
template <typename Item>
std::vector<GridColumn> GridColumns(const std::vector<ItemColumn<Item>>& columns)
{
    std::vector<GridColumn> shown;
    for (const ItemColumn<Item>& column : columns)
        if (column.inGrid)
            shown.push_back(column.shown);
    return shown;
}

template <typename Item>
ItemEntry<Item>::ItemEntry(Screen& form, Grid& rows, cmd& add, std::vector<ItemColumn<Item>> columns)
    : form_(form), rows_(rows), add_(add), columns_(std::move(columns))
{
    add.onClick = [this] { Add(); };
    rows.onDoubleClick = [this](int row) { TakeBack(static_cast<std::size_t>(row) - 1); };
    rows.onDelete = [this](int row) { Delete(static_cast<std::size_t>(row) - 1); };
    rows.onEscape = [this] { form_.SetFocus(FirstField()); };
}

template <typename Item>
void ItemEntry<Item>::Open(std::vector<Item> items)
{
    Reset(std::move(items));
    Change(items_.size());
}

template <typename Item>
void ItemEntry<Item>::Reset(std::vector<Item> items)
{
    items_ = std::move(items);
    opened_ = items_;
    deleted_.clear();
    Clear();
}

template <typename Item>
void ItemEntry<Item>::Replace(std::vector<Item> items)
{
    items_ = std::move(items);
    takenBack_.clear();
    Change(items_.size());
}

template <typename Item>
void ItemEntry<Item>::Append(const std::vector<Item>& items)
{
    items_.insert(items_.end(), items.begin(), items.end());
    Change(items_.size());
}

template <typename Item>
bool ItemEntry<Item>::Add()
{
    if (!PassesAll(form_, checks))
        return false;
    const Item entered = Entered();
    if (accepts && !accepts(entered))
        return false;
    const std::size_t at = takenBack_.empty() ? items_.size() : std::min(takenBack_.front().at, items_.size());
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), entered);
    Clear();
    Change(at + 1);
    form_.SetFocus(FirstField());
    return true;
}

template <typename Item>
bool ItemEntry<Item>::IsFree(std::size_t at) const
{
    return at < items_.size() && (!mayTakeBack || mayTakeBack(items_[at]));
}

/// What is in the fields goes first: typed, it is added; only looked at, it returns to its place.
template <typename Item>
void ItemEntry<Item>::TakeBack(std::size_t at)
{
    if (!IsFree(at))
        return;
    if (Typed()) {
        const std::size_t place = takenBack_.empty() ? items_.size() : takenBack_.front().at;
        if (!Add())
            return;
        at += place <= at ? 1 : 0;
    } else {
        for (const Removed& back : takenBack_)
            at += back.at <= at ? 1 : 0;
        items_ = ItemsWithTakenBack();
    }
    const Item taken = items_[at];
    takenBack_.clear();
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (i == at || AreAlike(items_[i], taken))
            takenBack_.push_back({i, items_[i]});
    for (auto back = takenBack_.rbegin(); back != takenBack_.rend(); ++back)
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(back->at));
    Give(taken);
    untouched_ = FieldTextsNow();
    if (takenBack_.size() > 1)
        form_.notice = std::to_string(takenBack_.size()) + " items that are alike were taken back: " + NameOf(taken);
    Change(at + 1);
    form_.SetFocus(FirstField());
}

template <typename Item>
void ItemEntry<Item>::Delete(std::size_t at)
{
    if (!IsFree(at))
        return;
    deleted_.push_back({at, items_[at]});
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(at));
    for (Removed& back : takenBack_)
        back.at -= back.at > at ? 1 : 0;
    form_.notice = NameOf(deleted_.back().item) + " removed. Ctrl+Z brings it back.";
    Change(at + 1);
}

template <typename Item>
void ItemEntry<Item>::Undo()
{
    if (deleted_.empty())
        return;
    const std::size_t at = std::min(deleted_.back().at, items_.size());
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), deleted_.back().item);
    for (Removed& back : takenBack_)
        back.at += back.at >= at ? 1 : 0;
    deleted_.pop_back();
    form_.notice = NameOf(items_[at]) + " is back.";
    Change(at + 1);
}

template <typename Item>
void ItemEntry<Item>::Lock()
{
    for (const ItemColumn<Item>& column : columns_) {
        if (column.field)
            column.field->enabled = false;
        if (column.tick)
            column.tick->enabled = false;
    }
    add_.enabled = false;
    rows_.onDoubleClick = rows_.onDelete = nullptr;
    rows_.onEscape = nullptr;
}

template <typename Item>
bool ItemEntry<Item>::Finish()
{
    return !Typed() || Add();
}

template <typename Item>
std::string ItemEntry<Item>::Count() const
{
    return std::to_string(items_.size()) + (items_.size() == 1 ? " item" : " items");
}

template <typename Item>
std::string ItemEntry<Item>::Summary() const
{
    if (takenBack_.empty())
        return Count();
    return Count() + " (removed: " + NameOf(takenBack_.front().item) + ", taken back and not added again)";
}

template <typename Item>
bool ItemEntry<Item>::Typed() const
{
    return FieldTextsNow() != untouched_;
}

/// What no field holds stays as it was in the item that was taken back.
template <typename Item>
Item ItemEntry<Item>::Entered() const
{
    Item item = takenBack_.empty() ? Item() : takenBack_.front().item;
    for (const ItemColumn<Item>& column : columns_)
        column.Take(item);
    if (complete)
        complete(item);
    return item;
}

template <typename Item>
void ItemEntry<Item>::Give(const Item& item)
{
    for (const ItemColumn<Item>& column : columns_)
        column.Give(item);
    if (given)
        given(item);
}

template <typename Item>
void ItemEntry<Item>::Clear()
{
    takenBack_.clear();
    Item empty;
    for (const ItemColumn<Item>& column : columns_)
        if (column.stays)
            column.Take(empty);
    Give(empty);
    untouched_ = FieldTextsNow();
}

template <typename Item>
void ItemEntry<Item>::Change(std::size_t current)
{
    if (changed)
        changed();
    Show(current);
}

template <typename Item>
std::vector<std::string> ItemEntry<Item>::CellsOf(int row) const
{
    const Item& item = items_.at(static_cast<std::size_t>(row) - 1);
    std::vector<std::string> cells;
    cells.reserve(rows_.columns().size());
    for (const ItemColumn<Item>& column : columns_)
        if (column.inGrid)
            cells.push_back(column.IsRunningNumber() ? std::to_string(row) : column.Text(item));
    return cells;
}

template <typename Item>
void ItemEntry<Item>::Show(std::size_t current)
{
    if (items_.empty() && blankRowWhenEmpty)
        rows_.SetRows({{}});
    else
        rows_.SetRows(items_.size(), [this](int row) { return CellsOf(row); });
    rows_.SetFooter(footer ? footer() : Totals());
    rows_.SetCurrentRow(static_cast<int>(current));
}

template <typename Item>
std::vector<std::string> ItemEntry<Item>::Totals() const
{
    std::vector<std::string> cells;
    bool isCounted = false;
    for (const ItemColumn<Item>& column : columns_) {
        if (!column.inGrid)
            continue;
        std::string& cell = cells.emplace_back();
        if (column.shown.kind == GridColumnKind::Text && !std::exchange(isCounted, true))
            cell = Count();
        if (column.shown.kind != GridColumnKind::Amount)
            continue;
        double sum = 0;
        for (const Item& item : items_)
            sum += column.Number(item);
        cell = SumText(sum);
        if (column.places == 0)
            cell.erase(cell.find('.'));
    }
    return cells;
}

template <typename Item>
std::vector<std::string> ItemEntry<Item>::FieldTextsNow() const
{
    std::vector<std::string> texts;
    for (const ItemColumn<Item>& column : columns_)
        if (column.field || column.tick)
            texts.push_back(ComparedText(column.tick ? static_cast<const Control&>(*column.tick) : *column.field));
    return texts;
}

template <typename Item>
std::vector<Item> ItemEntry<Item>::ItemsWithTakenBack() const
{
    std::vector<Item> items = items_;
    for (const Removed& back : takenBack_)
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(std::min(back.at, items.size())), back.item);
    return items;
}

template <typename Item>
bool ItemEntry<Item>::AreAlike(const Item& one, const Item& other) const
{
    bool alike = false;
    for (const ItemColumn<Item>& column : columns_) {
        if (!column.tellsApart)
            continue;
        alike = column.IsNumber() ? column.Number(one) == column.Number(other) : column.Text(one) == column.Text(other);
        if (!alike)
            return false;
    }
    return alike;
}

/// Its first text that was entered, and its first amount.
template <typename Item>
std::string ItemEntry<Item>::NameOf(const Item& item) const
{
    std::string text;
    std::string amount;
    for (const ItemColumn<Item>& column : columns_)
        if (column.shown.kind == GridColumnKind::Text && column.field && text.empty())
            text = column.Text(item);
        else if (column.shown.kind == GridColumnKind::Amount && amount.empty())
            amount = FormatAmountIndian(column.Text(item), kIndianGrouping);
    return text + (text.empty() ? "" : ", ") + amount;
}

template <typename Item>
Control& ItemEntry<Item>::FirstField() const
{
    const auto first =
        std::find_if(columns_.begin(), columns_.end(), [](const auto& column) { return column.field != nullptr; });
    return *first->field;
}

} // namespace pgbp
