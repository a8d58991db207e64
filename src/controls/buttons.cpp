#include "controls/buttons.h"

#include "controls/form.h"

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

void Option::Click()
{
    for (Control* control : form().controls())
        if (auto* other = dynamic_cast<Option*>(control); other && other->container == container)
            other->value = other == this;
    PushControl::Click();
}

bool Option::KeyDown(Key key)
{
    if (key == Key::Enter)
        form().FocusNextField();
    return key == Key::Enter;
}

} // namespace pgbp
