#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "entry/linked_client.h"
#include "records/annexure_rows.h"

#include <functional>
#include <optional>
#include <string>

namespace pgbp {

/// The figures of a line of business out of the books in the accounts product: net profit, accounts to add or to
/// deduct, depreciation. They go to the fields, the lists and the working rows of the annexure; the line's save keeps
/// them.
class AccountsImport {
  public:
    struct Use {
        txtn& netProfit;
        txtn& addedDepreciation;
        txtn& deductedDepreciation;
        WorkAnnexure& annexure;
        std::function<void()> listsChanged;
    };
    AccountsImport(Screen& screen, const Use& use);

    /// Looks for the books of the client and shows the four buttons, or hides them.
    void Set_Import();
    /// Accounts are marked and not yet taken.
    bool Altered() const;

    cmd cmdovpnl;
    cmd cmdovadd;
    cmd cmdovless;
    cmd cmdovdep;

    Frame fra;
    Grid DbGrid31;
    cmd cmdcont;
    cmd cmdbackfra1;

  private:
    void TakeNetProfit();
    void OpenAccounts(const char* kind, const char* list);
    void DataovRefresh(const Recordset& accounts);
    void Mark(int row);
    bool IsMarked(int row) const;
    void TakeMarked();
    void TakeDepreciation();
    double Appropriated(const std::string& kind, const std::string& group) const;

    Screen& screen_;
    Run& run_;
    const Use use_;
    std::optional<LinkedClient> client_;
    std::string txttype_; ///< list that the marked accounts go to
};

} // namespace pgbp
