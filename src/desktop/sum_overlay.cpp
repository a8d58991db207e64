#include "desktop/sum_overlay.h"

#include "desktop/captions.h"
#include "desktop/elided_label.h"
#include "desktop/theme.h"
#include "services/amount_text.h"

#include <QHBoxLayout>
#include <QLineEdit>

#include <algorithm>

namespace pgbp {
namespace {

constexpr int kLineWidth = 60 * kUnit;

} // namespace

SumOverlay::SumOverlay(QWidget* form, QWidget& field)
    : QFrame(form), line_(new QLineEdit(this)), result_(new ElidedLabel(this)), page_(*field.parentWidget()),
      over_(*this, field, [this](const QRect& place) { PlaceOver(place); })
{
    setProperty("over", true);
    setAutoFillBackground(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kUnit, kUnit, 2 * kUnit + 2, kUnit); // the result ends where the amount does
    row->setSpacing(2 * kUnit);
    line_->setAccessibleName("Arithmetic");
    line_->setFixedSize(kLineWidth, RowHeight());
    line_->setFocusPolicy(Qt::TabFocus);
    row->addWidget(line_);
    result_->setMinimumWidth(AmountWidth());
    result_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(result_, 1);
    QObject::connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) { edited(text); });
}

void SumOverlay::Show(const SumLine& sum)
{
    if (line_->text() != Text(sum.text))
        line_->setText(Text(sum.text));
    const bool isWrong = !sum.result.error.empty();
    result_->Show(isWrong ? Text(sum.result.error) : "= " + Text(GroupedAmount(sum.result.text)));
    result_->SetColor(isWrong ? Theme().muted : Theme().text);
    over_.Show();
}

/// The result comes to stand over the amount, the line before it; where the page has no room there, the line over the
/// amount and the result behind.
void SumOverlay::PlaceOver(const QRect& field)
{
    resize(sizeHint());
    const int before = field.right() + kUnit - width();
    const int behind = std::min(field.left() - kUnit, parentWidget()->width() - width());
    const bool fitsBefore = before >= page_.mapTo(parentWidget(), QPoint()).x();
    move(std::max(0, fitsBefore ? before : behind), std::max(0, field.center().y() - height() / 2));
}

} // namespace pgbp
