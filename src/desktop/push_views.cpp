#include "desktop/push_views.h"

#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"

#include <QCheckBox>
#include <QHelpEvent>
#include <QKeySequence>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolButton>
#include <QToolTip>

#include <algorithm>
#include <type_traits>

namespace pgbp {
namespace {

/// A button below a page: wide where there is room, its caption always whole.
class BottomButton : public QPushButton {
  public:
    explicit BottomButton(QWidget* parent) : QPushButton(parent)
    {
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return (minimumSizeHint() + QSize(4 * kUnit, 0)).expandedTo(QSize(22 * kUnit, 0));
    }
    QSize minimumSizeHint() const override { return QPushButton::sizeHint(); }
};

/// A tick or an option whose caption ends in dots where it does not fit, and is whole in the tip then.
template <typename Button>
class Giving : public Button {
  public:
    explicit Giving(QWidget* parent) : Button(parent) { this->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed); }

    QSize minimumSizeHint() const override
    {
        const QSize whole = this->sizeHint();
        return {std::min(whole.width(), 30 * kUnit), whole.height()};
    }

  protected:
    void paintEvent(QPaintEvent*) override
    {
        QStyleOptionButton option;
        this->initStyleOption(&option);
        const QFontMetrics& metrics = option.fontMetrics;
        const int room = metrics.size(Qt::TextShowMnemonic, option.text).width() - Missing();
        if (Missing() > 0)
            option.text = metrics.elidedText(option.text, Qt::ElideRight, room, Qt::TextShowMnemonic);
        QStylePainter(this).drawControl(kElement, option);
    }

    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip && this->toolTip().isEmpty() && Missing() > 0)
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainCaption(this->text().toStdString()),
                               this);
        return Button::event(event);
    }

  private:
    static constexpr QStyle::ControlElement kElement =
        std::is_same_v<Button, QCheckBox> ? QStyle::CE_CheckBox : QStyle::CE_RadioButton;

    int Missing() const { return this->sizeHint().width() - this->width(); }
};

} // namespace

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
    : PushView(itsButton, itsForm, place.inRow ? new QPushButton(place.parent) : new BottomButton(place.parent))
{
    auto* push = static_cast<QPushButton*>(button());
    push->setAutoDefault(false);
    push->setFixedHeight(RowHeight() + (place.inRow ? 0 : kUnit));
    push->setProperty(place.inRow ? "row" : "bottom", true);
    push->setProperty("main", itsButton.isDefault);
}

/// The buttons of a main frame stand below its page: they go with it.
bool ButtonView::IsVisible() const
{
    const bool isOfMain = control.container && control.container->place == FramePlace::Main;
    return push().inSight && (isOfMain ? control.Shown() : control.visible);
}

ImageView::ImageView(Image& itsImage, FormView& itsForm, const Place& place)
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
    : PushView(itsTick, itsForm, new Giving<Button>(place.parent)), tick_(itsTick)
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

template class TickView<CheckBox, QCheckBox>;
template class TickView<Option, QRadioButton>;

} // namespace pgbp
