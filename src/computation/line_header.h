#pragma once

#include "computation/line_rules.h"
#include "controls/buttons.h"
#include "controls/text_controls.h"
#include "entry/field_texts.h"
#include "startup/run.h"

#include <optional>
#include <vector>

namespace pgbp {

/// What the computation of every line of business begins and ends with: whether the line is new, its two descriptions,
/// the net profit with the way to its statement, and Save, Delete and Back.
class LineHeader {
  public:
    explicit LineHeader(Screen& form);

    /// Takes the line over from the summary.
    void Open(const LineOpening& opening);
    bool IsEdit() const { return isEdit_; }
    /// A column of the stored line; Null for a new one.
    const Value& Stored(std::string_view column) const { return business_[column]; }
    /// The descriptions as they stand on the screen.
    std::string Name() const;
    /// Number of the stored line.
    double Sno() const { return business_["sno"].Number(); }

    /// The stored rows of its lists, which were copied to the working table.
    void TakeLists(Recordset stored) { openedLists_ = std::move(stored); }
    /// Remembers the line as it is shown by these frames now, once for each opening.
    void Opened(const std::vector<const Frame*>& frames);
    /// Fields or lists of the line differ from what was opened.
    bool Altered() const;

    /// From 2007 the net profit is that of the statement and can not be typed.
    bool ProfitIsOfStatement() const { return RulesOf(run_).ProfitIsOfStatement(); }
    void ShowWayToStatement();

    /// Tells what is missing and gives the focus there; true when the line can not be saved.
    bool RefusesSave(bool nothingEntered);

    /// Writes the row of `business`, a new one under a new number, and empties the line's detail rows. `type` is the
    /// kind as it is stored; nothing leaves it as it is. Gives the line's number. Inside a transaction of the caller.
    double WriteRow(std::optional<std::string_view> type, std::vector<Field> fields, const Transaction& proof);

    /// Asks, and deletes the line with all that hangs on it. True when it is gone.
    bool Delete();

    txt Text1; ///< "Add" or "Edit"; never shown
    Label lbldescr;
    txt txtdescr1;
    txt txtdescr2;
    cmd CmdPNL;
    Label lblpnl;
    txtn txtpnl;
    cmd CmdSave;
    cmd CmdDel;
    cmd CmdBack;
    cmd cmdr; ///< laid out nowhere: only its hot key Alt+R reaches it

  private:
    /// What a frame held when the line was opened.
    struct OpenedFrame {
        const Frame* shown;
        FieldTexts texts;
    };

    void OpenStatement();
    void TakeStored(const std::optional<Record>& business);
    std::optional<double> StoredNumber() const;
    ScreenName<StatementOpening> StatementScreen() const;

    Run& run_;
    Screen& form_;
    bool isEdit_ = false;
    Record business_;
    std::vector<OpenedFrame> openedFrames_;
    Recordset openedLists_;
    double attempted_ = 0; ///< number under which a new line was written last; 0 before that
};

/// Tells that a line needs one of its two descriptions, and gives the focus there; true when both are empty.
bool LacksDescription(Screen& form, txt& first, const txt& second);

} // namespace pgbp
