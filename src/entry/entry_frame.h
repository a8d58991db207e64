#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "entry/checks.h"
#include "entry/item_entry.h"
#include "startup/run.h"

#include <vector>

namespace pgbp {

/// A side frame in which items are entered: fields, a grid of what was entered, Add, Save and Cancel. Cancel forgets
/// what was done since it was opened; Escape asks first where that is something.
template <typename Item>
class EntryFrame {
  public:
    struct Names {
        const char* panel;
        const char* rows;
        const char* add;
        const char* save;
        const char* back;
    };
    EntryFrame(Screen& itsScreen, const Names& names, std::vector<ItemColumn<Item>> columns);
    EntryFrame(const EntryFrame&) = delete;
    virtual ~EntryFrame() = default;

    /// The frame is up and differs from what was opened.
    virtual bool Altered() const { return panel.visible && entry.Altered(); }

    Frame panel;
    Grid rows;
    cmd add;
    cmd save;
    cmd back;
    ItemEntry<Item> entry;

  protected:
    void Raise(std::vector<Item> items);
    /// Keeps the items and tells so.
    virtual void Store() = 0;
    /// The items are forgotten, the frame is still up.
    virtual void Leaving() {}
    /// The frame is down.
    virtual void Left() {}

    Screen& screen;

  private:
    void Save();
    void Leave();
};

template <typename Item>
EntryFrame<Item>::EntryFrame(Screen& itsScreen, const Names& names, std::vector<ItemColumn<Item>> columns)
    : panel(itsScreen, names.panel), rows(itsScreen, names.rows, GridColumns(columns)),
      add(itsScreen, names.add, "&Add"), save(itsScreen, names.save, "&Save"), back(itsScreen, names.back, "&Cancel"),
      entry(itsScreen, rows, add, std::move(columns)), screen(itsScreen)
{
    save.isDefault = true;
    save.onClick = [this] { Save(); };
    back.onClick = [this] { Leave(); };
    panel.onUndo = [this] { entry.Undo(); };
    panel.onEscape = [this] {
        if (MayDiscard(screen.run, Altered()))
            Leave();
    };
}

template <typename Item>
void EntryFrame<Item>::Raise(std::vector<Item> items)
{
    entry.Open(std::move(items));
    screen.Raise(panel, entry.FirstField());
}

template <typename Item>
void EntryFrame<Item>::Save()
{
    if (!entry.Finish())
        return;
    Store();
    Leave();
}

template <typename Item>
void EntryFrame<Item>::Leave()
{
    entry.Close();
    Leaving();
    screen.Lower(panel);
    Left();
}

} // namespace pgbp
