#pragma once

#include "controls/form.h"
#include "startup/openings.h"

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

class Run;

/// A form of the module: it has the run. Before its first display it is given its opening by `Open(const Opening&)`.
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

    /// Left by the cross: nothing is saved, and the screen it was opened from comes back.
    void Close() override;

  protected:
    void Guard(const std::function<void()>& action) override;
};

/// The screens of a run: which there are, which is on display, which lie hidden below it. Screens are made when first
/// shown and unmade when left: every opening starts fresh.
class Screens {
  public:
    template <typename Opening>
    using Factory = std::function<std::unique_ptr<Screen>(Run&, const Opening&)>;

    explicit Screens(Run& run) : run_(run) {}

    Event<> changed; ///< another screen is on display, or the run has ended

    /// Makes a screen and opens it, whenever it is to be shown.
    template <typename Opening>
    void Register(ScreenName<Opening> name, Factory<Opening> factory);
    template <typename Made, typename Opening>
    void Register(ScreenName<Opening> name);
    /// The screens that there are.
    std::vector<std::string> Names() const;

    /// Hides the screen on display and shows this one, whose return makes that one active again.
    template <typename Opening>
    void Show(ScreenName<Opening> name, const std::type_identity_t<Opening>& opening = {});
    /// Shows the screen over the one on display, which waits; `left` runs when it was left.
    template <typename Opening>
    void ShowModal(
        ScreenName<Opening> name, const std::type_identity_t<Opening>& opening = {},
        const std::function<void()>& left = [] {});
    /// Leaves the screen on display for the one it was opened from.
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
    struct Shown {
        std::unique_ptr<Screen> screen;
        std::function<void()> left; ///< of a modal screen; none for one that stands alone
    };

    void Display(std::string_view name, const std::any& opening, std::function<void()> left);

    Run& run_;
    std::map<std::string, Factory<std::any>, std::less<>> factories_;
    std::vector<Shown> shown_;
    std::vector<std::unique_ptr<Screen>> left_;
    bool ended_ = false;
};

template <typename Opening>
void Screens::Register(ScreenName<Opening> name, Factory<Opening> factory)
{
    factories_[std::string(name.text)] = [factory](Run& run, const std::any& opening) {
        return factory(run, opening.has_value() ? std::any_cast<const Opening&>(opening) : Opening{});
    };
}

template <typename Made, typename Opening>
void Screens::Register(ScreenName<Opening> name)
{
    Register<Opening>(name, [](Run& run, [[maybe_unused]] const Opening& opening) {
        auto made = std::make_unique<Made>(run);
        if constexpr (requires { made->Open(opening); })
            made->Open(opening);
        return made;
    });
}

template <typename Opening>
void Screens::Show(ScreenName<Opening> name, const std::type_identity_t<Opening>& opening)
{
    Display(name.text, opening, nullptr);
}

template <typename Opening>
void Screens::ShowModal(ScreenName<Opening> name, const std::type_identity_t<Opening>& opening,
                        const std::function<void()>& left)
{
    Display(name.text, opening, left);
}

} // namespace pgbp
