#include "desktop/amount_view.h"

#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/sum_overlay.h"
#include "services/amount_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QVariant>

namespace pgbp {

AmountView::AmountView(NumberBox& itsAmount, FormView& itsForm, const Place& place)
    : TextView(itsAmount, itsForm, place), amount_(itsAmount)
{
}

bool AmountView::SumIsUp() const { return amount_.sum() && form.form.focused() == &amount_; }

void AmountView::FromModel()
{
    TextView::FromModel();
    if (SumIsUp() && !overlay_) {
        overlay_ = new SumOverlay(&form, *line());
        overlay_->edited = [this](const QString& line) { form.Act([&] { amount_.TypeSum(line.toStdString()); }); };
        form.Watch(overlay_->line(), *this);
    }
    if (SumIsUp())
        overlay_->Show(*amount_.sum());
    else if (overlay_)
        overlay_->hide();
}

QWidget* AmountView::keyboard() const { return SumIsUp() && overlay_ ? overlay_->line() : TextView::keyboard(); }

bool AmountView::KeyPressed(const QKeyEvent& event)
{
    if (SumIsUp()) // the key that opened the line is none of its characters
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): what the text field does with keys is not for the line over it
        return event.text() == "=" || ControlView::KeyPressed(event);
    if (amount_.locked && event.matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(Text(UngroupedAmount(amount_.text())));
        return true;
    }
    return TextView::KeyPressed(event);
}

/// The overlay edits its line by itself.
bool AmountView::Wants(Key key) const
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): as above
    return SumIsUp() ? key != Key::Undo && ControlView::Wants(key) : TextView::Wants(key);
}

bool AmountView::Noticed(QEvent& event) { return !SumIsUp() && TextView::Noticed(event); }

/// A field that can not be typed into is marked as a computed amount is.
QString AmountView::Copied() const
{
    return amount_.enabled ? QString() : Text(UngroupedAmount(WithPlaces(amount_.text(), amount_.deci)));
}

void AmountView::ShowMarked(bool marked)
{
    line()->setProperty("marked", marked);
    line()->style()->polish(line());
}

} // namespace pgbp
