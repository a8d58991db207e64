#include "desktop/text_view.h"

#include "desktop/form_view.h"
#include "desktop/label_view.h"
#include "desktop/theme.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace pgbp {
namespace {

constexpr int kShort = 24; ///< up to so many characters a field is as wide as its text; longer ones share the row

} // namespace

TextView::TextView(TextBox& itsBox, FormView& itsForm, const Place& place) : ControlView(itsBox, itsForm), box_(itsBox)
{
    box_.multiLine ? MakePage(place) : MakeLine(place);
    widget()->setFocusPolicy(Qt::TabFocus);
    form.Watch(widget(), *this);
}

void TextView::MakeLine(const Place& place)
{
    line_ = new QLineEdit(place.parent);
    line_->setAcceptDrops(false);
    line_->setFixedHeight(RowHeight());
    const bool isAmount = place.column == LayoutColumn::Amount || dynamic_cast<NumberBox*>(&box_);
    if (isAmount)
        line_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (isAmount && place.inRow)
        line_->setFixedWidth(AmountWidth());
    else if (box_.maxLength > 0 && box_.maxLength <= kShort)
        line_->setFixedWidth(line_->fontMetrics().horizontalAdvance(QString(box_.maxLength, 'W')) + 4 * kUnit);
    else
        line_->setMinimumWidth(60 * kUnit);
    sync_ = std::make_unique<TextSync>(box_, form, MakeEditor(*line_));
    Shows(line_);
}

void TextView::MakePage(const Place& place)
{
    page_ = new QPlainTextEdit(place.parent);
    page_->setAcceptDrops(false);
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
            MarkSign(*line_, box_.text());
    }
    sync_->FromModel();
}

bool TextView::KeyPressed(const QKeyEvent& event) { return sync_->KeyPressed(event) || ControlView::KeyPressed(event); }

bool TextView::Wants(Key key) const
{
    const bool isCaretMove = key == Key::Up || key == Key::Down;
    return ControlView::Wants(key) && !(box_.multiLine && isCaretMove);
}

} // namespace pgbp
