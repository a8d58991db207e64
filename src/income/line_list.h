#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "records/lines.h"
#include "startup/run.h"

namespace pgbp {

class frmbusiness;

/// The frame `fra1` of the summary: the stored lines of a kind of business of which there may be many, to choose one or
/// to add one. Its caption tells which kind is listed.
class LineList {
  public:
    explicit LineList(frmbusiness& summary);

    /// Opens the kind: straight to the detail screen when nothing is stored yet, else the list.
    void Open(BusinessKind kind);
    /// Hides the list; the focus goes back to the button it came from.
    void Leave();

    frmbusiness& form;
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

    Run& run_;
    static const Kind kKinds[3];
};

} // namespace pgbp
