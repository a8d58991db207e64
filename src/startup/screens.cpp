#include "startup/screens.h"

#include "services/format.h"
#include "startup/run.h"

#include <algorithm>

namespace pgbp {
Screen::Screen(Run& itsRun, std::string name, std::string captionText)
    : Form(std::move(name), std::move(captionText), itsRun.host.boxes, itsRun.title), run(itsRun)
{
}

void Screen::TellSaved(const std::string& what, double rupees)
{
    TellSaved(what);
    notice = what + " saved, " + FormatAmountIndian(Amount(rupees), kIndianGrouping) + ", " + TimeText(run.host.now());
}

void Screen::TellTakenOver(const std::string& what) { notice = what + ", stored when the line is saved."; }

void Screen::Close() { run.screens.Return(); }

void Screen::Guard(const std::function<void()>& action) { run.Guard(action); }

void Screen::TellSaved(const std::string& what)
{
    run.deletion.reset();
    notice = what + " saved, " + TimeText(run.host.now());
}

std::vector<std::string> Screens::Names() const
{
    std::vector<std::string> names;
    for (const auto& [name, factory] : factories_)
        names.push_back(name);
    return names;
}

void Screens::Display(std::string_view name, const std::any& opening, std::function<void()> left)
{
    auto screen = factories_.at(std::string(name))(run_, opening);
    Screen& opened = *screen;
    shown_.push_back({std::move(screen), std::move(left)});
    if (shown_.size() == 1) // an error of the frame window ends the start
        opened.Activate();
    else
        opened.Do([&] { opened.Activate(); });
    changed();
}

void Screens::Return()
{
    const auto left = shown_.back().left;
    left_.push_back(std::move(shown_.back().screen));
    shown_.pop_back();
    Screen* below = OnDisplay();
    if (below && !left_.back()->notice.get().empty()) // what was told on leaving is read where the preparer comes back
        below->notice = left_.back()->notice;
    if (below)
        below->Do([&] { left ? left() : below->Activate(); });
    changed();
}

void Screens::End()
{
    ended_ = true;
    for (auto& shown : shown_)
        left_.push_back(std::move(shown.screen));
    shown_.clear();
    changed();
}

void Screens::PressCross()
{
    for (auto before = shown_.size() + 1; !shown_.empty() && shown_.size() < before;) {
        before = shown_.size();
        shown_.back().screen->PressCross();
    }
}

Screen* Screens::OnDisplay() const { return shown_.empty() ? nullptr : shown_.back().screen.get(); }

Screen* Screens::Find(std::string_view name) const
{
    const auto found =
        std::find_if(shown_.begin(), shown_.end(), [&](const Shown& shown) { return shown.screen->name() == name; });
    return found == shown_.end() ? nullptr : found->screen.get();
}

std::vector<Screen*> Screens::Displayed() const
{
    std::vector<Screen*> displayed;
    for (auto shown = shown_.rbegin(); shown != shown_.rend(); ++shown) {
        displayed.push_back(shown->screen.get());
        if (!shown->left)
            break;
    }
    std::reverse(displayed.begin(), displayed.end());
    return displayed;
}

} // namespace pgbp
