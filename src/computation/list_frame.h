#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "startup/run.h"

#include <functional>
#include <string>
#include <vector>

namespace pgbp {

/// A column of a list: the field it is entered in, the column of the working table that keeps it, and how the grid
/// shows it.
struct ListColumn {
    std::string_view column; ///< of `temp`
    TextBox& field;
    std::string blank; ///< what the empty field shows: "" for a text, "0" or "0.00" for a number
    GridColumn shown;
    bool findsRow = true; ///< tells rows apart when one is taken back into the fields

    bool IsNumber() const { return !blank.empty(); }
    Value Entered() const { return IsNumber() ? Value(Val(field)) : Value(field.text()); }
};

class ListFrame;

/// One list of items of a line of business.
struct AdjustmentList {
    std::string_view type;                   ///< of its rows in `temp1`
    cmd& button;                             ///< opens it, and has the focus after it
    const TextControl& caption;              ///< heads its frame
    ListFrame& keptIn;                       ///< its frame
    frame* below = nullptr;                  ///< side frame that it was opened from and that comes back after it
    std::vector<std::string> offers = {};    ///< descriptions to choose from; any other can be typed
    bool asksForExemption = false;           ///< kind of exemption and PAN of the payer
    bool amountAlone = false;                ///< one amount in place of instalment and amount allowable
    std::function<std::string()> limit = {}; ///< of the partners' remuneration, shown below the list
    std::function<void()> storeAlong = {};   ///< what is saved with it
};

/// Why an item is not taken.
struct ListCheck {
    std::function<bool(std::string_view type)> fails;
    std::string message;
    TextBox* focus;
};

/// The side frame in which a list is kept: fields, a grid of what was entered, Add, Save and Cancel. One item at a time
/// is in the fields; a double click takes an item back into them. What is entered is kept in `temp` until Save moves it
/// to `temp1`; Cancel forgets it.
class ListFrame {
  public:
    struct Names {
        const char* panel;
        const char* rows;
        const char* add;
        const char* save;
        const char* back;
    };
    ListFrame(Screen& form, const Names& names, std::vector<ListColumn> columns);
    ListFrame(const ListFrame&) = delete;
    virtual ~ListFrame() = default;

    void Open(const AdjustmentList& list);
    /// Leaves without saving.
    void Back();
    /// `txttype`: the list that is open; empty when none is.
    std::string_view type() const { return list_ ? list_->type : std::string_view(); }

    frame panel;
    grid rows;
    cmd add;
    cmd save;
    cmd back;

    std::vector<ListCheck> checks;                ///< of Add, in their order
    std::function<std::vector<Field>()> computed; ///< columns of a new item that no field holds
    std::function<void()> left;                   ///< after Save and Cancel, before the focus goes back

  protected:
    /// Shows what the list asks for.
    virtual void Prepare(const AdjustmentList& list) = 0;

  private:
    void Add();
    void TakeBack(int row);
    void Save();
    void ShowInPlaceOf(frame* below, bool shows);
    void ClearFields();
    void ShowRows();

    Run& run_;
    Form& form_;
    std::vector<ListColumn> columns_;
    const AdjustmentList* list_ = nullptr;
    Recordset shown_; ///< the rows behind the grid
};

} // namespace pgbp
