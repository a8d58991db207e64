#pragma once

#include "controls/control.h"
#include "controls/message_box.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

class Frame;
class Label;
class PushControl;

/// A screen: its controls by name, the focus, and the boundary at which errors of its handlers are caught. Knows no
/// window; what draws it listens to `changed` and `focusMoved`.
class Form {
  public:
    /// `title` is the title of error boxes.
    Form(std::string name, std::string captionText, MessageBoxes& boxes, std::string title);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    const std::string& name() const { return name_; }
    const std::string& title() const { return title_; }
    MessageBoxes& boxes() const { return boxes_; }

    Event<> changed;
    Event<> focusMoved;
    Property<std::string> caption;
    /// What needs no answer: what was saved and when, what was not stored and why. Stands in the status line until the
    /// next one; never takes the focus.
    Property<std::string> notice{changed, ""};

    /// The form became the window in front: first display and every return to it.
    virtual void Activate() {}
    /// The preparer closes the window by its cross; a form that stays refuses.
    virtual void Close() {}

    const std::vector<Control*>& controls() const { return controls_; }
    /// The control by its exact name; none when there is no such name.
    Control* Find(std::string_view controlName) const;

    /// Buttons of the form itself, reachable whatever frame is up.
    std::vector<PushControl*> bar;

    Control* focused() const { return focused_; }
    /// Moves the focus if the old field lets go and the new one can be reached.
    bool SetFocus(Control& control);
    void FocusNext();
    void FocusBelow();
    /// As Enter goes: past the buttons beside amounts, to Add in a list, at last to the main button.
    void FocusNextField();
    void FocusPrevious();
    /// The stops of the walk, in order: the frame that is up, row by row, then the bar.
    std::vector<Control*> Stops() const;
    /// Puts a side frame over what is in front, with the focus on a control of it.
    void Raise(Frame& card, Control& first);
    /// Takes a side frame away with those over it. The focus returns to where it was before, unless `onLowered` of the
    /// frame has moved it.
    void Lower(Frame& card);
    /// The side frames that are up, the lowest one first.
    const std::vector<Frame*>& Cards() const { return cards_; }
    /// The side frame that lies on top, if any.
    Frame* Card() const { return cards_.empty() ? nullptr : cards_.back(); }

    // What a person does. Each is a boundary: an exception ends in an error box with the form's title, and the run goes
    // on.
    void Do(const std::function<void()>& action);
    void Press(Key key);
    void Type(char32_t character);
    void Click(PushControl& control); ///< the focus goes there first, where the field it is in lets go
    void Click(Label& link);
    void PressCross(); ///< closes the form, where the field that has the focus lets go
    /// Presses the button whose caption has this mnemonic. False when there is none.
    bool Mnemonic(char32_t letter);
    /// The letters of the buttons in front: marked by "&" in the caption, else the first letter that no other one has.
    std::map<const PushControl*, char> Mnemonics() const;

  protected:
    /// Runs an action of the preparer. What it throws ends here, in an error box.
    virtual void Guard(const std::function<void()>& action);

  private:
    friend class Control;
    friend class Frame;
    Control* FocusedStop() const;
    void ClickOn(Control& control, const std::function<void()>& click);
    bool LeaveFocused();
    Frame* Front() const;
    void KeepFocusReachable();
    void Step(int direction);
    void StepAmong(const std::vector<Control*>& stops, int direction);
    void DefaultKey(Key key);
    void FocusGrid();

    std::string name_;
    std::string title_;
    MessageBoxes& boxes_;
    std::vector<Control*> controls_;
    std::vector<Frame*> frames_; ///< those among the controls, in their order
    std::vector<Frame*> cards_;
    Control* focused_ = nullptr;
    Control* wanted_ = nullptr; ///< where a handler moved the focus while the old field was being left
    bool leaving_ = false;
    bool acting_ = false;
};

} // namespace pgbp
