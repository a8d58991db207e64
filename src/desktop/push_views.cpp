#include "desktop/push_views.h"

#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"

#include <QCheckBox>
#include <QKeySequence>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace pgbp {

PushView::PushView(PushControl& itsControl, FormView& itsForm, QAbstractButton* button)
    : ControlView(itsControl, itsForm), push_(itsControl), button_(button)
{
    button->setFocusPolicy(Qt::TabFocus); // a click asks the form for the focus
    form.Watch(button, *this);
    QObject::connect(button, &QAbstractButton::clicked, &connections,
                     [this] { form.Act([this] { form.form.Click(push_); }); });
    Shows(button);
}

void PushView::FromModel()
{
    ControlView::FromModel();
    const QString caption = Caption();
    if (button_->text() == caption)
        return;
    button_->setText(caption);
    button_->setShortcut({}); // the letter belongs to the form, which knows what lies in front
}

QString PushView::Caption() const { return MarkedCaption(push_.caption, form.Mnemonic(push_)); }

ButtonView::ButtonView(cmd& itsButton, FormView& itsForm, const Place& place)
    : PushView(itsButton, itsForm, new QPushButton(place.parent))
{
    auto* push = static_cast<QPushButton*>(button());
    push->setAutoDefault(false);
    push->setFixedHeight(RowHeight() + (place.inRow ? 0 : kUnit));
    push->setProperty(place.inRow ? "row" : "bottom", true);
    push->setProperty("main", itsButton.isDefault);
    push->setMinimumWidth(place.inRow ? 0 : 22 * kUnit);
}

/// The buttons of a main frame stand below its page: they go with it.
bool ButtonView::IsVisible() const
{
    const bool isOfMain = control.container && control.container->place == FramePlace::Main;
    return isOfMain ? control.Shown() : control.visible;
}

ImageView::ImageView(image& itsImage, FormView& itsForm, const Place& place)
    : PushView(itsImage, itsForm, new QToolButton(place.parent))
{
    button()->setFixedSize(18, 18);
    button()->setProperty("help", true);
}

void ImageView::FromModel()
{
    PushView::FromModel();
    button()->setAccessibleName(Text(control.toolTip));
}

template <typename Kind, typename Button>
TickView<Kind, Button>::TickView(Kind& itsTick, FormView& itsForm, const Place& place)
    : PushView(itsTick, itsForm, new Button(place.parent)), tick_(itsTick)
{
    button()->setAutoExclusive(false);
    button()->setMinimumHeight(RowHeight());
    QPalette palette = button()->palette();
    palette.setColor(QPalette::Window, Theme().edge.lighter(140)); // the style draws the tick box darker than this
    button()->setPalette(palette);
}

template <typename Kind, typename Button>
void TickView<Kind, Button>::FromModel()
{
    PushView::FromModel();
    button()->setChecked(tick_.value);
}

template class TickView<check, QCheckBox>;
template class TickView<option, QRadioButton>;

} // namespace pgbp
