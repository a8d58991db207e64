#include "desktop/control_view.h"

#include "controls/grid.h"
#include "desktop/amount_view.h"
#include "desktop/captions.h"
#include "desktop/combo_view.h"
#include "desktop/date_view.h"
#include "desktop/form_view.h"
#include "desktop/frame_view.h"
#include "desktop/grid_view.h"
#include "desktop/label_view.h"
#include "desktop/list_view.h"
#include "desktop/push_views.h"
#include "desktop/text_view.h"

#include <QWidget>

namespace pgbp {
namespace {

template <typename Kind, typename View>
std::unique_ptr<ControlView> Make(Control& control, FormView& form, const Place& place)
{
    auto* kind = dynamic_cast<Kind*>(&control);
    return kind ? std::make_unique<View>(*kind, form, place) : nullptr;
}

// a kind stands before the kinds it is made of
constexpr std::unique_ptr<ControlView> (*kMakers[])(Control&, FormView&, const Place&) = {
    Make<Label, LabelView>,   Make<txtdate, DateView>, Make<combo, ComboView>, Make<NumberBox, AmountView>,
    Make<TextBox, TextView>,  Make<Image, ImageView>,  Make<cmd, ButtonView>,  Make<CheckBox, CheckView>,
    Make<Option, OptionView>, Make<Grid, GridView>,    Make<List, ListView>,   Make<Frame, FrameView>,
};

} // namespace

std::unique_ptr<ControlView> MakeView(Control& control, FormView& form, const Place& place)
{
    for (const auto make : kMakers)
        if (auto view = make(control, form, place))
            return view;
    throw std::logic_error("no view for control " + control.name());
}

void ControlView::FromModel()
{
    widget_->setVisible(IsVisible());
    widget_->setEnabled(IsEnabled());
    widget_->setToolTip(Text(control.toolTip));
}

QRect ControlView::Spot() const { return widget_->rect(); }

bool ControlView::KeyPressed(const QKeyEvent& event)
{
    const auto key = FormView::KeyOf(event);
    if (!key || !Wants(*key))
        return false;
    form.Press(*key);
    return true;
}

bool ControlView::IsEnabled() const { return control.enabled; }

bool ControlView::Wants(Key key) const
{
    if (control.host && control.host->TakesFromEditor(key))
        return true;
    switch (key) {
    case Key::Up:
    case Key::Down:
    case Key::Enter:
    case Key::Tab:
    case Key::BackTab:
    case Key::Escape:
    case Key::F1:
    case Key::ControlDown:
    case Key::Undo:
    case Key::Find:
    case Key::Print:
        return true;
    default:
        return false;
    }
}

} // namespace pgbp
