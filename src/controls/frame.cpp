#include "controls/frame.h"

#include "controls/form.h"

namespace pgbp {

Frame::Frame(Form& form, std::string_view name, std::string captionText, FramePlace where)
    : Control(form, name), caption(changed, std::move(captionText)), place(where)
{
    form.frames_.push_back(this);
    if (place == FramePlace::Card)
        visible = false;
}

void Frame::Lay(Layout layout)
{
    layout_ = std::move(layout);
    const auto adopt = [this](Control* control) {
        if (control)
            control->container = this;
    };
    for (const auto& row : layout_.rows)
        for (Control* control : row.cells)
            adopt(control);
    for (Control* control : layout_.buttonsLeft)
        adopt(control);
    for (Control* control : layout_.buttonsRight)
        adopt(control);
}

} // namespace pgbp
