#include "desktop/program_icon.h"

#include <QPainter>
#include <QPixmap>

namespace pgbp {
namespace {

// the same in the light and in the dark look: the desktop around it is not ours
const QColor kCover("#1D5FBF");
const QColor kPaper("#FFFFFF");
const QColor kFaint("#A9C4EC");

/// Drawn on a square of 16 units.
QPixmap Picture(int size)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kCover);
    painter.drawRoundedRect(QRectF(0, 0, 16, 16), 3, 3);
    painter.setBrush(kPaper);
    painter.drawRoundedRect(QRectF(3, 2, 10, 12), 1, 1);
    const auto line = [&painter](const QColor& color, double left, double top, double width) {
        painter.fillRect(QRectF(left, top, width, 1), color);
    };
    for (const double top : {4.0, 6.0, 8.0}) { // a caption and its amount
        line(kFaint, 4, top, 3);
        line(kFaint, 9, top, 3);
    }
    line(kCover, 8, 10, 4);
    line(kCover, 8, 12, 4);
    return picture;
}

} // namespace

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addPixmap(Picture(size));
    return icon;
}

} // namespace pgbp
