#include "controls/buttons.h"

#include "controls/form.h"

#include <algorithm>

namespace pgbp {

void PushControl::Click()
{
    if (onClick)
        onClick();
}

bool PushControl::Type(char32_t character)
{
    if (character == U' ')
        Click();
    return character == U' ';
}

bool cmd::KeyDown(Key key)
{
    if (key == Key::Enter)
        Click();
    return key == Key::Enter;
}

CheckBox& CheckBox::operator=(bool ticked)
{
    if (value != ticked)
        Click();
    return *this;
}

void CheckBox::Click()
{
    value = !value;
    PushControl::Click();
}

bool CheckBox::KeyDown(Key key)
{
    if (key == Key::Enter)
        form().FocusNextField();
    return key == Key::Enter;
}

/// Those of its frame, itself included.
std::vector<Option*> Option::Group() const
{
    std::vector<Option*> group;
    for (Control* control : form().controls())
        if (auto* option = dynamic_cast<Option*>(control); option && option->container == container)
            group.push_back(option);
    return group;
}

bool Option::TakesFocus() const
{
    const auto group = Group();
    const bool isOneChosen =
        std::any_of(group.begin(), group.end(), [](const Option* one) { return one->value.get(); });
    return PushControl::TakesFocus() && (value || !isOneChosen);
}

void Option::Click()
{
    bool hasFocus = false;
    for (Option* option : Group()) {
        option->value = option == this;
        hasFocus = hasFocus || form().focused() == option;
    }
    if (hasFocus)
        form().SetFocus(*this);
    PushControl::Click();
}

bool Option::KeyDown(Key key)
{
    if (key == Key::Enter)
        form().FocusNextField();
    const auto group = Group();
    const auto at = std::find(group.begin(), group.end(), this);
    if (key == Key::Right && at + 1 != group.end())
        at[1]->Click();
    if (key == Key::Left && at != group.begin())
        at[-1]->Click();
    return key == Key::Enter || key == Key::Left || key == Key::Right;
}

} // namespace pgbp
