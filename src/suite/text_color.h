#pragma once

#include <QLabel>
#include <QPalette>

namespace pgbp {

/// Gives a label's text a colour of the theme.
inline void SetTextColor(QLabel& label, const QColor& color)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
}

} // namespace pgbp
