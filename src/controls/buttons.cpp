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

check& check::operator=(bool ticked)
{
    if (value != ticked)
        Click();
    return *this;
}

void check::Click()
{
    value = !value;
    PushControl::Click();
}

bool check::KeyDown(Key key)
{
    if (key == Key::Enter)
        form().FocusNextField();
    return key == Key::Enter;
}

void option::Click()
{
    for (Control* control : form().controls())
        if (auto* other = dynamic_cast<option*>(control); other && other->container == container)
            other->value = other == this;
    PushControl::Click();
}

bool option::KeyDown(Key key)
{
    if (key == Key::Enter)
        form().FocusNextField();
    return key == Key::Enter;
}

} // namespace pgbp
