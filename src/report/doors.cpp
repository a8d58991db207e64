#include "report/doors.h"

#include "controls/buttons.h"
#include "controls/frame.h"

#include <algorithm>

namespace pgbp::report {
namespace {

constexpr Door kDoors[] = {
    {"cmd511"},       {"cmd560"},         {"cmd23a"},           {"cmd17"},         {"cmdless"},
    {"cmd23l"},       {"cmdother", true}, {"cmd564"},           {"cmd570"},        {"cmd568"},
    {"Cmd35"},        {"cmd10abc"},       {"cmd28a"},           {"cmd28l"},        {"cmdintt"},
    {"cmdremu"},      {"Command3", true}, {"CmdPartner", true}, {"CmdPart", true}, {"CmdMulti", true},
    {"CmdDep", true}, {"CmdPNL", true},   {"CmdPro", true},     {"CmdAOP", true},  {"Cmd10A(0)"},
    {"Cmd10A(1)"},    {"Cmd10A(2)"},      {"Cmd10A(3)"},        {"Cmd10A(4)"},     {"Cmd10A(5)"},
    {"Cmd10A(6)"},    {"Cmd10A(7)"},
};

} // namespace

const Door* DoorNamed(std::string_view button)
{
    const auto found = std::ranges::find(kDoors, button, &Door::button);
    return found == std::end(kDoors) ? nullptr : found;
}

std::optional<Opened> Press(Screen& screen, std::string_view button)
{
    auto* door = dynamic_cast<PushControl*>(screen.Find(button));
    if (!door || !door->Reachable())
        return std::nullopt;
    const Frame* before = screen.Card();
    screen.Click(*door);
    if (Screen* now = screen.run.screens.OnDisplay(); now != &screen)
        return Opened{now, nullptr};
    return screen.Card() == before ? std::nullopt : std::optional(Opened{&screen, screen.Card()});
}

void Leave(const Opened& opened)
{
    if (opened.card)
        opened.screen->Do([&] { opened.card->onEscape(); });
    else
        opened.screen->PressCross();
}

const Frame* MainFrameOf(const Screen& screen)
{
    for (const Control* control : screen.controls())
        if (const auto* frame = dynamic_cast<const Frame*>(control);
            frame && frame->place == FramePlace::Main && frame->visible)
            return frame;
    return nullptr;
}

} // namespace pgbp::report
