#include "desktop/text_view.h"

#include "desktop/form_view.h"
#include "desktop/theme.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QVariant>

#include <algorithm>

namespace pgbp {
namespace {

// characters by which a field is drawn wide
constexpr int kShortest = 8;
constexpr int kLongest = 40;

constexpr int kLeastField = 30 * kUnit; ///< narrower, and the page scrolls

/// A field that is narrower than it asks for where there is little room.
class Line : public QLineEdit {
  public:
    Line(QWidget* parent) : QLineEdit(parent) {}

    void Ask(int wanted, int least)
    {
        wanted_ = wanted;
        least_ = least;
    }
    QSize sizeHint() const override { return {wanted_, RowHeight()}; }
    QSize minimumSizeHint() const override { return {least_, RowHeight()}; }

  private:
    int wanted_ = 0;
    int least_ = 0;
};

} // namespace

TextView::TextView(TextBox& itsBox, FormView& itsForm, const Place& place) : ControlView(itsBox, itsForm), box_(itsBox)
{
    box_.multiLine ? MakePage(place) : MakeLine(place);
    widget()->setFocusPolicy(Qt::TabFocus);
    form.Watch(widget(), *this);
    if (page_)
        form.Watch(page_->viewport(), *this);
}

void TextView::MakeLine(const Place& place)
{
    auto* line = new Line(place.parent);
    line_ = line;
    line_->setProperty("cell", place.inCell);
    if (!place.inCell)
        line_->setFixedHeight(RowHeight());
    if (place.OfAmounts() || dynamic_cast<NumberBox*>(&box_)) {
        line_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        line_->setProperty("figures", true);
        line->Ask(AmountWidth(), LeastAmount());
        line_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    } else {
        const int characters = box_.maxLength > 0 ? std::clamp(box_.maxLength, kShortest, kLongest) : kLongest;
        const int wanted = line_->fontMetrics().averageCharWidth() * characters + 4 * kUnit;
        line->Ask(wanted, std::min(wanted, kLeastField));
    }
    sync_ = std::make_unique<TextSync>(box_, form, MakeEditor(*line_));
    Shows(line_);
}

void TextView::MakePage(const Place& place)
{
    page_ = new QPlainTextEdit(place.parent);
    page_->setTabChangesFocus(true);
    page_->setMinimumSize(120 * kUnit, 6 * RowHeight());
    sync_ = std::make_unique<TextSync>(box_, form, MakeEditor(*page_));
    Shows(page_);
}

void TextView::FromModel()
{
    ControlView::FromModel();
    if (page_) {
        page_->setReadOnly(box_.locked);
    } else {
        line_->setReadOnly(box_.locked);
        if (line_->alignment() & Qt::AlignRight)
            ShowSign();
    }
    sync_->FromModel();
}

void TextView::ShowSign()
{
    const bool isNegative = Val(box_) < 0;
    if (line_->property("negative").toBool() == isNegative)
        return;
    line_->setProperty("negative", isNegative);
    line_->style()->polish(line_);
}

bool TextView::KeyPressed(const QKeyEvent& event) { return sync_->KeyPressed(event) || ControlView::KeyPressed(event); }

void TextView::Forget() { sync_->Forget(); }

bool TextView::Noticed(QEvent& event) { return sync_->Noticed(event); }

bool TextView::Wants(Key key) const
{
    const bool isCaretMove = key == Key::Up || key == Key::Down;
    if (key == Key::Undo) // what was typed here is taken back first
        return line_ && !line_->isUndoAvailable();
    return ControlView::Wants(key) && !(box_.multiLine && isCaretMove);
}

} // namespace pgbp
