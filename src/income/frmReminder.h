#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/lists.h"
#include "controls/text_controls.h"
#include "startup/run.h"

namespace pgbp {

/// Free notes of the assessee-year, each under a title that no other note of the year has.
class frmReminder : public Screen {
  public:
    explicit frmReminder(Run& itsRun);
    void Open(const NoOpening& opening);
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    List LV{*this, "LV"};
    Label lblhint{*this, "lblhint", "* Double Click to Add New Item", LabelLook::Hint};
    cmd cmdhide{*this, "cmdhide", "&Close"};

    Frame Frame1{*this, "Frame1"};
    Label lblhead{*this, "lblhead", "Title :"};
    Txt1 txthead{*this, "txthead"};
    Txt1 txtmmo{*this, "txtmmo"};
    Label lbldate{*this, "lbldate", "", LabelLook::Hint};
    cmd cmdsave{*this, "cmdsave", "&Save"};
    cmd mnudel{*this, "mnudel", "&Delete"};
    cmd cmdX{*this, "cmdX", "X"};

  private:
    void ShowTitles();
    void NewNote();
    void OpenNote(int entry);
    void Save();
    bool Store(const std::string& title);
    void DeleteOrCancel();
    void HideOrClose();
    void LeaveFrame();
    bool TitleExists(const std::string& title) const;

    std::string opened_; ///< title of the note in the frame as it is stored; empty for a new one
};

} // namespace pgbp
