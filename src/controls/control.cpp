#include "controls/control.h"

#include "controls/form.h"
#include "controls/frame.h"
#include "controls/grid.h"

namespace pgbp {

Control::Control(Form& form, std::string_view name) : form_(form), name_(name)
{
    form.controls_.push_back(this);
    changed.Add([&form] { form.changed(); });
}

/// What it is hidden and disabled with.
const Control* Control::Around() const { return host ? static_cast<const Control*>(host) : container; }

bool Control::Shown() const { return visible && (!Around() || Around()->Shown()); }

bool Control::InFront() const
{
    const Control* top = this;
    while (top->Around())
        top = top->Around();
    return top == form_.Front() || !dynamic_cast<const Frame*>(top);
}

bool Control::Reachable() const
{
    const auto usable = [](const Control& control) { return control.visible && control.enabled; };
    for (const Control* control = this; control; control = control->Around())
        if (!usable(*control))
            return false;
    return InFront();
}

void Control::Enter()
{
    if (onGotFocus)
        onGotFocus();
}

bool Control::Leave()
{
    if (onLostFocus)
        onLostFocus();
    return true;
}

} // namespace pgbp
