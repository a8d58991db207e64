#include "desktop/form_view.h"

#include "desktop/actions.h"
#include "desktop/card_layer.h"
#include "desktop/frame_view.h"
#include "desktop/page.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace pgbp {

FormView::FormView(Form& itsForm, Actions& actions, QWidget* parent, WindowMemory* itsMemory)
    : QWidget(parent), form(itsForm), memory(itsMemory), actions_(actions)
{
    setFocusPolicy(Qt::NoFocus);
    Build();
    changedListener_ = form.changed.Add([this] { CatchUpSoon(); });
    focusListener_ = form.focusMoved.Add([this] { CatchUpSoon(); });
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
    cards_ = new CardLayer(form, this, pages_);
    box->addWidget(pages_, 1);
    const ButtonRow buttons = AddButtonRow(*box);
    box->addStretch(0);
    for (Control* control : form.controls())
        if (auto* top = dynamic_cast<Frame*>(control); top && top->place == FramePlace::Main)
            AddMain(*top, buttons);
        else if (top && top->place == FramePlace::Card)
            notShownYet_.push_back(top);
    for (PushControl* button : form.bar)
        buttons.right->addWidget(Add(*button, {.parent = this, .inRow = false}).widget());
}

void FormView::AddMain(Frame& main, const ButtonRow& buttons)
{
    auto* page = new Page(pages_);
    pages_->layout()->addWidget(page);
    auto& view = static_cast<FrameView&>(Add(main, {.parent = page->viewport()}));
    page->setWidget(view.widget());
    page->KeepInSight([&view] { return view.FinalRow(); });
    page->onRoom = [&view](int height) { view.FitInto(height); };
    view.AddButtons(buttons);
    mains_.emplace_back(&main, page);
}

/// A side frame is drawn when it is first up.
void FormView::AddCards(bool all)
{
    std::erase_if(notShownYet_, [&](Frame* card) {
        const bool now = all || card->visible;
        if (now)
            cards_->Add(static_cast<FrameView&>(Add(*card, {.parent = cards_})));
        return now;
    });
}

QSize FormView::SizeWithCards()
{
    AddCards(true);
    const QSize around = sizeHint() - pages_->sizeHint();
    return sizeHint().expandedTo(cards_->sizeHint() + QSize(0, around.height()));
}

ControlView& FormView::Add(Control& control, const Place& place)
{
    views_.push_back(nullptr); // a frame adds the views of its controls meanwhile
    const auto at = views_.size() - 1;
    views_[at] = MakeView(control, *this, place);
    byControl_[&control] = views_[at].get();
    views_[at]->FromModel(); // a hidden one is hidden before its frame is laid out
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
    return found == mnemonics_.end() ? '\0' : found->second;
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
    bool found = true; // by a handler that fails, too: its message is the answer
    Act([&] { found = form.Mnemonic(static_cast<char32_t>(event.key())); });
    return found;
}

bool FormView::HasKeyboard(const QWidget& widget)
{
    const QWidget* taker = &widget;
    while (taker->focusProxy())
        taker = taker->focusProxy();
    return widget.window()->focusWidget() == taker;
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
        {Qt::Key_F1, Key::F1},
        {Qt::Key_Delete, Key::Delete},
    };
    if (event.matches(QKeySequence::Undo))
        return Key::Undo;
    if (event.matches(QKeySequence::Find))
        return Key::Find;
    if (event.matches(QKeySequence::Print))
        return Key::Print;
    if (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Down)
        return Key::ControlDown;
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return std::nullopt;
    for (const auto& [pressed, key] : kKeys)
        if (pressed == event.key())
            return key;
    return std::nullopt;
}

void FormView::Refresh()
{
    AddCards(false);
    mnemonics_ = form.Mnemonics();
    for (const auto& view : views_)
        view->FromModel();
    for (const auto& [main, page] : mains_) {
        page->setVisible(main->visible);
        page->RefreshFoot();
        if (main->visible)
            pages_->setMaximumHeight(HighestOf(*main, *page));
    }
    cards_->Arrange();
    MoveFocus();
    stale_ = false;
    refreshed();
}

/// In a high window the buttons stay near the rows, unless a list takes the height there is.
int FormView::HighestOf(const Frame& main, const Page& page) const
{
    return Find(&main)->TakesHeight() ? QWIDGETSIZE_MAX : std::max(HighestPage(), page.sizeHint().height());
}

void FormView::CatchUp()
{
    if (stale_)
        Refresh();
    else
        MoveFocus(); // a menu that was open kept the keyboard
}

/// For a form that changes by itself; after an action there is nothing left to do.
void FormView::CatchUpSoon()
{
    stale_ = true;
    if (std::exchange(catchUpQueued_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            catchUpQueued_ = false;
            CatchUp();
        },
        Qt::QueuedConnection);
}

/// A form that another one hides leaves the keyboard to that one.
void FormView::MoveFocus()
{
    if (!isVisible() || QApplication::activePopupWidget())
        return;
    const ControlView* view = Find(form.focused());
    QWidget* keyboard = view ? view->keyboard() : this;
    if (HasKeyboard(*keyboard))
        return;
    keyboard->setFocus(Qt::OtherFocusReason);
    if (view)
        ShowFocused(*view);
}

void FormView::ShowFocused(const ControlView& view) const
{
    for (QWidget* around = view.widget()->parentWidget(); around && around != this; around = around->parentWidget())
        if (auto* page = dynamic_cast<Page*>(around))
            page->ScrollTo(view.Spot().translated(view.widget()->mapTo(page->widget(), QPoint())));
}

bool FormView::eventFilter(QObject* object, QEvent* event)
{
    const auto found = watched_.find(object);
    if (found == watched_.end())
        return QWidget::eventFilter(object, event);
    ControlView& view = *found->second;
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        return CopyMarked(key) || PressMnemonic(key) || view.KeyPressed(key);
    }
    if (event->type() == QEvent::MouseButtonPress && MousePressed(view))
        return true;
    return view.Noticed(*event);
}

/// The mouse asks the form for the focus. True when the press goes no further: the field with the focus does not let
/// go, or the press only brought the focus.
bool FormView::MousePressed(ControlView& view)
{
    Mark(view.Copied().isEmpty() ? nullptr : &view);
    if (marked_)
        return true;
    if (dynamic_cast<PushControl*>(&view.control) || form.focused() == &view.control)
        return false; // the form moves the focus itself when the click comes
    bool came = false;
    Act([&] { came = form.SetFocus(view.control); });
    return !came || view.KeepsFirstPress();
}

void FormView::Mark(ControlView* view)
{
    for (ControlView* each : {std::exchange(marked_, view), view})
        if (each)
            each->ShowMarked(each == view);
}

/// Any other key ends the mark.
bool FormView::CopyMarked(const QKeyEvent& event)
{
    const bool copies = marked_ && event.matches(QKeySequence::Copy);
    if (copies)
        QGuiApplication::clipboard()->setText(marked_->Copied());
    else if (event.key() != Qt::Key_Control && event.key() != Qt::Key_Shift)
        Mark(nullptr);
    return copies;
}

void FormView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    MoveFocus();
}

void FormView::keyPressEvent(QKeyEvent* event)
{
    if (CopyMarked(*event) || PressMnemonic(*event))
        return;
    if (const auto key = KeyOf(*event); key && form.focused() == nullptr)
        Press(*key);
    else
        QWidget::keyPressEvent(event);
}

} // namespace pgbp
