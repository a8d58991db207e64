#pragma once

#include "controls/form.h"
#include "store/recordset.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

class Run;

enum class Mode { Add, Edit };

/// One of several things of a kind, for a screen that keeps the details of one of them.
struct Subject {
    int index = 0; ///< its place among them, from 0
    std::string section = {};
    std::string description = {};
};

/// What a detail screen is opened with.
struct Opening {
    std::string caption = {}; ///< of the screen; empty keeps its own
    Mode mode = Mode::Add;
    Record business = {}; ///< in Edit: the row of `business` that is to be changed
    Subject subject = {};
};

/// A form of the module: it has the run.
class Screen : public Form {
  public:
    Screen(Run& itsRun, std::string name, std::string captionText);

    Run& run;

    /// Tells in the status line that `what` was saved with its amount, and when. What was deleted before can not be
    /// brought back from then on.
    void TellSaved(const std::string& what, double rupees);
    /// Tells that what was entered was taken into the line of business that is open.
    void TellTakenOver(const std::string& what);
    void TellSaved(const std::string& what);

    /// The button opens this screen: it is closed where this version has none.
    void LeadsTo(Control& door, std::string_view screen) const;
    /// Disables what opens something that this version does not have, and says so in its tip.
    static void CloseDoor(Control& door);

    /// Comes before the first display.
    virtual void Open(const Opening&) {}
    /// A modal screen that lay over this one was left.
    virtual void ModalClosed() { Activate(); }
    /// Left by the cross: nothing is saved, and the screen it was opened from comes back.
    void Close() override;

  protected:
    void Guard(const std::function<void()>& action) override;
};

/// The screens of a run: which there are, which is on display, which lie hidden below it. A screen names another one,
/// never its class, so that no folder of screens knows the insides of another. Screens are made when first shown and
/// unmade when left: every opening starts fresh.
class Screens {
  public:
    using Factory = std::function<std::unique_ptr<Screen>(Run&)>;

    explicit Screens(Run& run) : run_(run) {}

    Event<> changed; ///< another screen is on display, or the run has ended

    void Register(std::string name, Factory factory);
    /// The screens that there are.
    std::vector<std::string> Names() const;

    bool Has(std::string_view name) const { return factories_.find(name) != factories_.end(); }

    /// Hides the screen on display and shows this one. A message tells when this version has no such screen.
    void Show(std::string_view name, const Opening& opening = {});
    /// Shows the screen over the one on display, which waits.
    void ShowModal(std::string_view name, const Opening& opening = {});
    /// Leaves the screen on display for the one it was opened from: that becomes active, or is told that the modal
    /// screen over it is closed.
    void Return();
    /// Ends the run.
    void End();
    /// The cross of the window: presses the cross of the screen on display, then of the one that comes back, and so on
    /// until the last one has ended the run. A screen that refuses stays on display, and the run goes on.
    void PressCross();

    bool Ended() const { return ended_; }
    /// The screen on display; none before the first one and after the end.
    Screen* OnDisplay() const;
    /// The screen by its name among those that are loaded; none when it is not.
    Screen* Find(std::string_view name) const;
    /// The screens from the lowest shown one up: one, and the modal ones over it.
    std::vector<Screen*> Displayed() const;

    /// Unmakes the screens that were left. Called between two actions of the preparer, when no handler of theirs runs.
    void Sweep() { left_.clear(); }

  private:
    enum class Placement { Alone, Modal };
    struct Shown {
        std::unique_ptr<Screen> screen;
        Placement placement;
    };

    void Display(std::string_view name, const Opening& opening, Placement placement);

    Run& run_;
    std::map<std::string, Factory, std::less<>> factories_;
    std::vector<Shown> shown_;
    std::vector<std::unique_ptr<Screen>> left_;
    bool ended_ = false;
};

} // namespace pgbp
