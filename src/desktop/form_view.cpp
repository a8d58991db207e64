#include "desktop/form_view.h"

#include "desktop/actions.h"
#include "desktop/card_layer.h"
#include "desktop/frame_view.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

namespace pgbp {

FormView::FormView(Form& itsForm, Actions& actions, QWidget* parent) : QWidget(parent), form(itsForm), actions_(actions)
{
    setFocusPolicy(Qt::NoFocus);
    Build();
    changedListener_ = form.changed.Add([this] { RefreshSoon(); });
    focusListener_ = form.focusMoved.Add([this] { RefreshSoon(); });
    Refresh();
}

FormView::~FormView()
{
    form.changed.Remove(changedListener_);
    form.focusMoved.Remove(focusListener_);
}

void FormView::Build()
{
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(3 * kUnit);
    pages_ = new QWidget(this);
    auto* pages = new QVBoxLayout(pages_);
    pages->setContentsMargins(0, 0, 0, 0);
    cards_ = new CardLayer(pages_);
    auto* bottom = new QWidget(this);
    auto* buttons = new QHBoxLayout(bottom);
    auto* right = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(2 * kUnit);
    right->setSpacing(2 * kUnit);
    box->addWidget(pages_, 1);
    box->addWidget(bottom);

    // over a copy: views of the frames add more views
    for (Control* control : std::vector(form.controls()))
        if (auto* top = dynamic_cast<frame*>(control); top && top->place == FramePlace::Main)
            AddMain(*top, *buttons, *right);
        else if (top && top->place == FramePlace::Card)
            cards_->Add(static_cast<FrameView&>(Add(*top, {.parent = cards_})));
    for (PushControl* button : form.bar)
        right->addWidget(Add(*button, {.parent = bottom, .inRow = false}).widget());
    buttons->addStretch(1);
    buttons->addLayout(right);
}

void FormView::AddMain(frame& main, QHBoxLayout& left, QHBoxLayout& right)
{
    auto& view = static_cast<FrameView&>(Add(main, {.parent = pages_}));
    pages_->layout()->addWidget(MakePage(view.widget(), pages_));
    view.AddButtons(left, right);
}

ControlView& FormView::Add(Control& control, const Place& place)
{
    views_.push_back(nullptr); // a frame adds the views of its controls meanwhile
    const auto at = views_.size() - 1;
    views_[at] = MakeView(control, *this, place);
    byControl_[&control] = views_[at].get();
    return *views_[at];
}

void FormView::Watch(QWidget* widget, ControlView& view)
{
    watched_[widget] = &view;
    widget->installEventFilter(this);
}

ControlView* FormView::Find(const Control* control) const
{
    const auto found = byControl_.find(control);
    return found == byControl_.end() ? nullptr : found->second;
}

char FormView::Mnemonic(const PushControl& button) const
{
    const auto found = mnemonics_.find(&button);
    return found == mnemonics_.end() ? 0 : found->second;
}

void FormView::Act(const std::function<void()>& action)
{
    actions_.Run([&] {
        form.Do(action);
        Refresh();
    });
}

void FormView::Press(Key key)
{
    Act([&] { form.Press(key); });
}

bool FormView::PressMnemonic(const QKeyEvent& event)
{
    const auto held = event.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier);
    if (held != Qt::AltModifier || event.key() > 0x7F)
        return false;
    bool found = false;
    Act([&] { found = form.Mnemonic(static_cast<char32_t>(event.key())); });
    return found;
}

std::optional<Key> FormView::KeyOf(const QKeyEvent& event)
{
    static constexpr std::pair<Qt::Key, Key> kKeys[] = {
        {Qt::Key_Up, Key::Up},
        {Qt::Key_Down, Key::Down},
        {Qt::Key_Left, Key::Left},
        {Qt::Key_Right, Key::Right},
        {Qt::Key_Home, Key::Home},
        {Qt::Key_End, Key::End},
        {Qt::Key_Return, Key::Enter},
        {Qt::Key_Enter, Key::Enter},
        {Qt::Key_Tab, Key::Tab},
        {Qt::Key_Backtab, Key::BackTab},
        {Qt::Key_Escape, Key::Escape},
        {Qt::Key_PageUp, Key::PageUp},
        {Qt::Key_PageDown, Key::PageDown},
    };
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return std::nullopt;
    for (const auto& [pressed, key] : kKeys)
        if (pressed == event.key())
            return key;
    return std::nullopt;
}

void FormView::Refresh()
{
    mnemonics_ = form.Mnemonics();
    for (const auto& view : views_)
        view->FromModel();
    cards_->Arrange();
    MoveFocus();
}

void FormView::RefreshSoon()
{
    if (std::exchange(refreshQueued_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            refreshQueued_ = false;
            Refresh();
        },
        Qt::QueuedConnection);
}

void FormView::MoveFocus()
{
    if (QApplication::activePopupWidget())
        return;
    const ControlView* view = Find(form.focused());
    QWidget* keyboard = view ? view->keyboard() : this;
    if (keyboard->hasFocus())
        return;
    keyboard->setFocus(Qt::OtherFocusReason);
    if (view && isVisible())
        ShowFocused(*view);
}

/// Scrolls the page to the field with the focus.
void FormView::ShowFocused(const ControlView& view)
{
    for (QWidget* around = view.widget()->parentWidget(); around && around != this; around = around->parentWidget())
        if (auto* page = qobject_cast<QScrollArea*>(around))
            page->ensureWidgetVisible(view.widget(), kPadding, kPadding);
}

bool FormView::eventFilter(QObject* object, QEvent* event)
{
    const auto found = watched_.find(object);
    if (found == watched_.end())
        return QWidget::eventFilter(object, event);
    ControlView& view = *found->second;
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        return PressMnemonic(key) || view.KeyPressed(key);
    }
    if (event->type() == QEvent::MouseButtonPress && MousePressed(view))
        return true;
    return view.Noticed(*event);
}

/// The mouse asks the form for the focus. True when the press goes no further: the field with the focus does not let
/// go, or the press only brought the focus.
bool FormView::MousePressed(ControlView& view)
{
    if (dynamic_cast<PushControl*>(&view.control) || form.focused() == &view.control)
        return false; // the form moves the focus itself when the click comes
    bool came = false;
    Act([&] { came = form.SetFocus(view.control); });
    return !came || view.KeepsFirstPress();
}

void FormView::keyPressEvent(QKeyEvent* event)
{
    if (PressMnemonic(*event))
        return;
    if (const auto key = KeyOf(*event); key && form.focused() == nullptr)
        Press(*key);
    else
        QWidget::keyPressEvent(event);
}

QSize FormView::sizeHint() const
{
    const QSize around = QWidget::sizeHint() - pages_->sizeHint();
    return QWidget::sizeHint().expandedTo(cards_->sizeHint() + QSize(0, around.height()));
}

} // namespace pgbp
