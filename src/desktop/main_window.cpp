#include "desktop/main_window.h"

#include "desktop/captions.h"
#include "desktop/elided_label.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"
#include "desktop/window_memory.h"
#include "startup/daily_check.h"
#include "startup/status.h"

#include <QCloseEvent>
#include <QDialog>
#include <QHBoxLayout>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace pgbp {
namespace {

/// A modal screen: its cross and the Escape key are the screen's own way to close.
class ScreenDialog : public QDialog {
  public:
    ScreenDialog(Screen& screen, Actions& actions, QWidget* parent, WindowMemory* memory)
        : QDialog(parent), screen_(screen)
    {
        setWindowModality(Qt::WindowModal);
        auto* box = new QVBoxLayout(this);
        box->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
        view = new FormView(screen, actions, this, memory);
        box->addWidget(view);
        const QSize around(2 * kPadding, 2 * kPadding);
        resize((view->SizeWithCards() + around).boundedTo(parent->window()->size()));
    }

    FormView* view;

    void reject() override
    {
        if (screen_.Card()) // Escape is the card's then
            return;
        view->Act([this] { screen_.PressCross(); });
    }

  protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        view->Act([this] { screen_.PressCross(); });
    }

  private:
    Screen& screen_;
};

// a long name gives way to the rest
constexpr int kLeastTitle = 40 * kUnit;
constexpr int kWidestName = 140 * kUnit;

constexpr std::chrono::seconds kNoticeStandsOut(8);

/// What stands behind the client's name in the heading.
QString Heading(const Run& run)
{
    QString heading = Text(run.Glyear) + "   " + Text(StatusInWords(run.Glstatus));
    if (run.GLminor != 0)
        heading += "   " + Text(run.IncomeOf());
    return heading;
}

/// What stands behind the client's name in the status line.
QString StatusLine(const Run& run, double returnForm)
{
    QString line;
    const auto add = [&](bool when, const QString& part) {
        if (when)
            line += "   \u00B7   " + part;
    };
    add(!run.Glyear.empty(), "A.Y. " + Text(run.Glyear));
    add(true, Text(StatusInWords(run.Glstatus)));
    add(returnForm != 0, "ITR-" + QString::number(returnForm));
    add(run.GLminor != 0, Text(run.IncomeOf()));
    add(run.GLlock != 0,
        run.readOnly ? "Read-only" : "Locked: nothing can be keyed, Back writes the head of income anew");
    add(true, run.IsSqlStore ? "Data on the server" : "Data in files");
    return line;
}

} // namespace

MainWindow::MainWindow(Run& run, WindowMemory* memory) : run_(run), memory_(memory)
{
    Build();
    actions_.settled = [this] { Settled(); };
    actions_.done = [this] {
        if (isBehind_)
            CatchUp();
    };
    changedListener_ = run_.screens.changed.Add([this] {
        isBehind_ = true;
        actions_.Settle();
    });
    CatchUp();
    actions_.Settle(); // the run may have ended before there was a window
    AwaitCheck();
}

/// The check of the data files ends while nobody does anything.
void MainWindow::AwaitCheck()
{
    if (!run_.dailyCheck || run_.dailyCheck->Ended())
        return;
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer] {
        if (run_.dailyCheck && !run_.dailyCheck->Ended())
            return;
        timer->stop();
        actions_.Settle();
    });
    constexpr int kMilliseconds = 200;
    timer->start(kMilliseconds);
}

MainWindow::~MainWindow()
{
    if (memory_)
        memory_->Keep(*this);
    run_.screens.changed.Remove(changedListener_);
    Drop([](const Shown&) { return true; });
}

void MainWindow::Build()
{
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    auto* pages = new QWidget(this);
    pages_ = new QStackedLayout(pages);
    pages->setContentsMargins(kPadding, 3 * kUnit, kPadding, 3 * kUnit);
    box->addWidget(BuildHeader());
    box->addWidget(pages, 1);
    box->addWidget(BuildStatusLine());
}

QWidget* MainWindow::BuildHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(kPadding, 3 * kUnit, kPadding, 0);
    row->setSpacing(2 * kPadding);
    title_ = new ElidedLabel(header);
    title_->setFont(FontOf(Type::Title));
    title_->GiveWay(kLeastTitle);
    row->addWidget(title_);
    row->addStretch(1);
    client_ = new ElidedLabel(header);
    client_->GiveWay(0);
    client_->setMaximumWidth(kWidestName);
    row->addWidget(client_);
    year_ = new ElidedLabel(header);
    row->addWidget(year_);
    return header;
}

QWidget* MainWindow::BuildStatusLine()
{
    auto* line = new QWidget(this);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(kPadding, kUnit, kPadding, kUnit);
    row->setSpacing(0);
    for (ElidedLabel** label : {&statusClient_, &status_}) {
        *label = new ElidedLabel(line);
        (*label)->SetColor(Theme().muted);
        (*label)->GiveWay(0);
        row->addWidget(*label);
    }
    statusClient_->setMaximumWidth(kWidestName);
    row->addStretch(1);
    notice_ = new ElidedLabel(line);
    notice_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(notice_);
    noticeFades_.setSingleShot(true);
    noticeFades_.setInterval(kNoticeStandsOut);
    QObject::connect(&noticeFades_, &QTimer::timeout, this, [this] { notice_->SetColor(Theme().muted); });
    return line;
}

FormView* MainWindow::Find(const Screen* screen) const
{
    const auto found =
        std::find_if(shown_.begin(), shown_.end(), [&](const Shown& shown) { return shown.screen == screen; });
    return found == shown_.end() ? nullptr : found->view;
}

MainWindow::Shown& MainWindow::ShownFor(Screen& screen, bool modal)
{
    const auto found =
        std::find_if(shown_.begin(), shown_.end(), [&](const Shown& shown) { return shown.screen == &screen; });
    if (found != shown_.end())
        return *found;
    Shown fresh{&screen, screen.name(), nullptr, nullptr};
    if (modal) {
        auto dialog = std::make_unique<ScreenDialog>(screen, actions_, shown_.back().top->window(), memory_);
        fresh.view = dialog->view;
        fresh.top = std::move(dialog);
    } else {
        auto view = std::make_unique<FormView>(screen, actions_, pages_->parentWidget(), memory_);
        fresh.view = view.get();
        pages_->addWidget(view.get());
        fresh.top = std::move(view);
    }
    return shown_.emplace_back(std::move(fresh));
}

void MainWindow::CatchUp()
{
    isBehind_ = false;
    const auto displayed = run_.screens.Displayed();
    pages_->parentWidget()->setEnabled(!displayed.empty()); // after the end a key has nothing left to act on
    for (const Shown& shown : shown_)
        if (shown.top->isWindow() && std::find(displayed.begin(), displayed.end(), shown.screen) == displayed.end())
            shown.top->hide();
    for (std::size_t i = 0; i < displayed.size(); ++i) {
        Shown& shown = ShownFor(*displayed[i], i > 0);
        shown.view->CatchUp();
        if (i > 0) {
            shown.top->setWindowTitle(Text(displayed[i]->caption));
            shown.top->show();
        } else if (pages_->currentWidget() != shown.view) {
            pages_->setCurrentWidget(shown.view);
        }
    }
    if (!displayed.empty())
        ShowTexts(*displayed.front());
    ShowNotice();
}

void MainWindow::ShowTexts(const Screen& page)
{
    if (const Screen* window = run_.screens.Find("frmmdi"))
        setWindowTitle(Text(window->caption));
    const QString client = Text(run_.clientName);
    title_->Show(Text(page.caption));
    client_->Show(client);
    year_->Show(Heading(run_));
    statusClient_->Show(client);
    status_->Show(StatusLine(run_, returnForm_));
}

void MainWindow::ShowNotice()
{
    const Screen* front = run_.screens.OnDisplay();
    if (!front || front->notice.get() == noticeShown_)
        return;
    noticeShown_ = front->notice;
    notice_->Show(Text(noticeShown_));
    notice_->SetColor(Theme().accent);
    noticeFades_.start();
}

/// Between two actions: no handler of a screen runs, so what was left can go, the widgets first.
void MainWindow::Settled()
{
    TellDamage(run_);
    Drop([this](const Shown& shown) { return run_.screens.Find(shown.name) != shown.screen; });
    CatchUp();
    run_.screens.Sweep();
    if (run_.screens.Ended() && onEnd)
        onEnd();
}

/// From the last one back: a dialog is the parent of those over it.
void MainWindow::Drop(const std::function<bool(const Shown&)>& unwanted)
{
    for (auto i = shown_.size(); i-- > 0;)
        if (unwanted(shown_[i]))
            shown_.erase(shown_.begin() + static_cast<std::ptrdiff_t>(i));
}

/// A wide window has the page in its middle.
void MainWindow::resizeEvent(QResizeEvent* event)
{
    const int side = std::max(0, (width() - WidestPage()) / 2);
    layout()->setContentsMargins(side, 0, side, 0);
    notice_->GiveWay(std::min(width(), WidestPage()) * 2 / 3); // what the status says stands in the header, too
    QWidget::resizeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    actions_.Run([this] { run_.screens.PressCross(); });
}

} // namespace pgbp
