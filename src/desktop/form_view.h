#pragma once

#include "controls/buttons.h"
#include "controls/form.h"
#include "desktop/control_view.h"

#include <QWidget>

#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace pgbp {

class Actions;
class CardLayer;
class Page;
class WindowMemory;
struct ButtonRow;

/// Draws any form: its main frames as pages, its side frames as cards over them, and one row of buttons below. The form
/// is the authority: everything the preparer does goes to it, and the widgets are made like it afterwards.
class FormView : public QWidget {
  public:
    FormView(Form& itsForm, Actions& actions, QWidget* parent = nullptr, WindowMemory* itsMemory = nullptr);
    ~FormView() override;

    Form& form;
    WindowMemory* const memory; ///< none: nothing is kept

    /// Makes the view of a control that is laid out.
    ControlView& Add(Control& control, const Place& place);
    /// Keys and clicks of the widget come to the view.
    void Watch(QWidget* widget, ControlView& view);
    ControlView* Find(const Control* control) const;

    /// Scrolls the page to the view that has the focus.
    void ShowFocused(const ControlView& view) const;

    /// The letter by which the button is pressed with Alt; 0 when there is none now.
    char Mnemonic(const PushControl& button) const;

    /// Does something to the form on the preparer's behalf, then follows the form: once, however much it changed.
    void Act(const std::function<void()>& action);
    void Press(Key key);
    /// Alt and a letter; false when no button has it.
    bool PressMnemonic(const QKeyEvent& event);
    /// Makes all widgets like the form.
    void Refresh();
    /// Does so if the form has changed since.
    void CatchUp();
    Event<> refreshed; ///< the widgets are like the form

    /// Keys come to the widget while its window is in front.
    static bool HasKeyboard(const QWidget& widget);
    /// The model's key; none for a character, or when Ctrl is held.
    static std::optional<Key> KeyOf(const QKeyEvent& event);

    /// The size at which every side frame has room, too.
    QSize SizeWithCards();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool) override { return true; }

  private:
    void Build();
    void AddMain(Frame& main, const ButtonRow& buttons);
    void AddCards(bool all);
    int HighestOf(const Frame& main, const Page& page) const;
    void CatchUpSoon();
    void MoveFocus();
    bool MousePressed(ControlView& view);
    void Mark(ControlView* view);
    bool CopyMarked(const QKeyEvent& event);

    Actions& actions_;
    int changedListener_ = 0;
    int focusListener_ = 0;
    std::vector<std::unique_ptr<ControlView>> views_;
    std::unordered_map<const Control*, ControlView*> byControl_;
    std::unordered_map<const QObject*, ControlView*> watched_;
    std::map<const PushControl*, char> mnemonics_;
    std::vector<std::pair<Frame*, Page*>> mains_; ///< main frames, each with its page
    std::vector<Frame*> notShownYet_;
    QWidget* pages_ = nullptr;
    CardLayer* cards_ = nullptr;
    ControlView* marked_ = nullptr; ///< the amount that Ctrl+C copies
    bool stale_ = false;            ///< the form changed since the widgets were made like it
    bool catchUpQueued_ = false;
};

} // namespace pgbp
