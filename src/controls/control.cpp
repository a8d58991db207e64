#include "controls/control.h"

#include "controls/form.h"
#include "controls/frame.h"

namespace pgbp {

Control::Control(Form& form, std::string_view name) : form_(form), name_(name)
{
    form.controls_.push_back(this);
    changed.Add([&form] { form.changed(); });
}

bool Control::Shown() const { return visible && (!container || container->Shown()); }

bool Control::InFront() const
{
    const Control* top = this;
    while (top->container)
        top = top->container;
    const auto* outermost = dynamic_cast<const Frame*>(top);
    return !outermost || outermost == form_.Front();
}

bool Control::Reachable() const
{
    const auto usable = [](const Control& control) { return control.visible && control.enabled; };
    for (const Control* control = this; control; control = control->container)
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
