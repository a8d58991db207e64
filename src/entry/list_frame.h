#pragma once

#include "entry/entry_frame.h"
#include "records/working_copies.h"
#include "startup/run.h"

#include <functional>
#include <string>
#include <vector>

namespace pgbp {

class ListFrame;

/// What of its rows a list is summed up by.
enum class ItemSum { Amt1, Amt3LessAmt2 };

/// One list of items of a line of business.
struct AdjustmentList {
    std::string_view type;      ///< of its rows in `temp1`
    cmd& button;                ///< opens it, and has the focus after it
    const TextControl& caption; ///< heads its frame
    ListFrame& keptIn;          ///< its frame
    Label* total = nullptr;     ///< shows the list's sum; none where the sum is not the list's alone
    ItemSum sum = ItemSum::Amt1;
    bool isOther = false;                    ///< opened from the frame of the other adjustments, not from the line
    std::vector<std::string> offers = {};    ///< descriptions to choose from; any other can be typed
    bool asksForExemption = false;           ///< kind of exemption and PAN of the payer
    bool amountAlone = false;                ///< one amount in place of instalment and amount allowable
    std::function<std::string()> limit = {}; ///< of the partners' remuneration, shown below the list
    std::function<void(const Transaction&)> storeAlong = {}; ///< what is saved with it
    std::function<bool()> alteredAlong = {};                 ///< and whether that differs from what is stored
};

/// The side frame in which a list is kept. What is entered is kept in `temp` until Save moves it to `temp1`.
class ListFrame : public EntryFrame<WorkItem> {
  public:
    ListFrame(Screen& itsScreen, const Names& names, std::vector<ItemColumn<WorkItem>> columns);

    void Open(const AdjustmentList& list);
    /// `txttype`: the list that is open; empty when none is.
    std::string_view type() const { return list_ ? list_->type : std::string_view(); }
    bool Altered() const override;

  protected:
    /// Shows what the list asks for.
    virtual void Prepare(const AdjustmentList& list) = 0;
    /// Puts back what Prepare changed, when the list is left.
    virtual void Restore() {}

  private:
    void OfferUsedTexts();
    void Store() override;
    void Leaving() override;

    const AdjustmentList* list_ = nullptr;
};

} // namespace pgbp
