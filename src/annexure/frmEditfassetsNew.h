#pragma once

#include "annexure/annexure_store.h"
#include "controls/buttons.h"
#include "controls/date_control.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "startup/run.h"

#include <string>
#include <vector>

namespace pgbp {

/// All assets of the assessee's lines of business in one grid, edited in place. No button opens it.
class frmEditfassetsNew : public Screen {
  public:
    explicit frmEditfassetsNew(Run& itsRun);
    void Open(const NoOpening& opening);
    void Activate() override;
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Grid MSH;
    txt txtname{*this, "txtname"};
    combo txtGr{*this, "txtGr"};
    txtn TxtNum{*this, "TxtNum"};
    txtdate txtdate1{*this, "txtdate1"};
    cmd cmbsave{*this, "cmbsave", "&Update"};
    cmd CmdBack{*this, "CmdBack", "&Back"};

  private:
    void Wire();
    bool CanEnter(int column) const;
    void EnterCell(int row, int column);
    /// The editor's text goes into the asset, and its figures follow.
    void TakeFrom(const TextBox& editor);
    void CheckRate();
    void TurnMark(int row);
    void Compute();
    void ShowRow(int row);
    AnnexureRow& Current();
    void Update();

    std::vector<StoredAsset> assets_;
    std::vector<StoredAsset> opened_;
};

} // namespace pgbp
