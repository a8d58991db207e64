#pragma once

#include "controls/frame.h"
#include "entry/item_entry.h"
#include "statements/statement_rows.h"

#include <functional>
#include <vector>

namespace pgbp {

/// `Frame1`: the parts that the amount of one line is broken down into.
class StatementDetails {
  public:
    explicit StatementDetails(Screen& form);

    std::function<void()> onAdd;
    /// The frame is left with these entries; their total, rupees.
    std::function<void(std::vector<DetailEntry> entries, double total)> onClose;

    /// Shows the entries of the line with the printed name.
    void Open(int slno, const std::string& lineName, const std::vector<DetailEntry>& entries);
    int slno() const { return slno_; }

  private:
    struct Item {
        std::string serial{};
        std::string description{};
        double amount = 0; ///< rupees

        bool operator==(const Item&) const = default;
    };

    std::vector<ItemColumn<Item>> Columns();
    void LayOut();
    void Close();
    double Total() const;

    Screen& form_;
    int slno_ = 0;

  public:
    Frame Frame1;
    Label lbldescr;
    txt TxtDescr;
    Label lblamt;
    txtn TxtAmt;
    cmd CmdAdd;
    Grid Msh1;
    Label lbltotal;
    txtn TxtSTOT;
    cmd CmdClose;

  private:
    ItemEntry<Item> entry_;
};

} // namespace pgbp
