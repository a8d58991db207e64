#pragma once

#include "controls/event.h"

#include <functional>
#include <string>
#include <string_view>

namespace pgbp {

class Form;
class Frame;
class Grid;

/// A key that is no character.
enum class Key {
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    Enter,
    Tab,
    BackTab,
    Escape,
    Backspace,
    Delete,
    PageUp,
    PageDown,
    F1,
    ControlDown, ///< to the grid of the frame
    Undo,        ///< Ctrl+Z
    Find,        ///< Ctrl+F
    Print        ///< Ctrl+P
};

/// What a form consists of: a named thing that can be shown, enabled and reached by the keyboard. Knows no toolkit;
/// what draws it listens to `changed`.
class Control {
  public:
    /// Registers itself with the form under its name.
    Control(Form& form, std::string_view name);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::string& name() const { return name_; }
    Form& form() const { return form_; }

    Event<> changed; ///< text, state or looks changed
    Property<bool> enabled{changed, true};
    Property<bool> visible{changed, true};
    Property<std::string> toolTip{changed, ""};
    Frame* container = nullptr; ///< the frame it is laid out in; none for a control of the form itself
    Grid* host = nullptr;       ///< the grid over whose cells it is placed: the walk goes on from the grid

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

    /// What a reader of the screen sees in it.
    virtual std::string Shows() const { return {}; }

    /// Visible itself, and so are the frames around it.
    bool Shown() const;
    /// Not behind a side frame that lies over its frame.
    bool InFront() const;
    /// Shown, in front and enabled with the frames around it: a person can use it.
    bool Reachable() const;
    /// A stop of the walk through the fields.
    virtual bool TakesFocus() const { return false; }

    /// The focus comes. `Leave` tells whether it may go.
    virtual void Enter();
    virtual bool Leave();
    /// A key or a character that arrives while the control has the focus; true when the control has dealt with it.
    virtual bool KeyDown(Key) { return false; }
    virtual bool Type(char32_t) { return false; }

  private:
    const Control* Around() const;

    Form& form_;
    std::string name_;
};

} // namespace pgbp
