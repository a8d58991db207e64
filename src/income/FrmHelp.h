#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "startup/run.h"

namespace pgbp {

/// Shows the text of the topic in `GlHelpTopic`.
class FrmHelp : public Screen {
  public:
    explicit FrmHelp(Run& itsRun);
    void Open(const HelpOpening& opening);

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label LblCaption{*this, "LblCaption", "", LabelLook::Heading};
    Txt1 txtDesc{*this, "txtDesc"};
    cmd CmdBack{*this, "CmdBack", "Close"};

  private:
    std::string TextOf(const std::string& topic) const;
};

} // namespace pgbp
