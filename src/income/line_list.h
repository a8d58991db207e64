#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "records/lines.h"
#include "startup/run.h"

namespace pgbp {

/// What the list of lines asks of the summary.
struct LineListUse {
    std::function<void()> bringBack;                ///< the line that was deleted last
    std::function<void()> lineIsGone;               ///< the chosen line was deleted meanwhile
    std::function<Control&(BusinessKind)> buttonOf; ///< that opens the kind
};

/// The frame `fra1` of the summary: the stored lines of a kind of business of which there may be many, to choose one or
/// to add one. Its caption tells which kind is listed.
class LineList {
  public:
    LineList(Screen& summary, LineListUse use);

    /// Opens the kind: straight to the detail screen when nothing is stored yet, else the list.
    void Open(BusinessKind kind);
    /// Hides the list; the focus goes back to the button it came from.
    void Leave();

    Frame fra1;
    Label lblchoose;
    Grid DBGrid1;
    cmd CmdAdd;
    cmd cmdback1;

  private:
    struct Kind;

    void Fill(const Recordset& lines);
    void Choose(int row);
    void Add();
    const Kind& KindByCaption() const;
    static const Kind& Find(BusinessKind kind);
    Recordset LinesOf(BusinessKind kind) const;

    Screen& form_;
    Run& run_;
    LineListUse use_;
    static const Kind kKinds[3];
};

} // namespace pgbp
