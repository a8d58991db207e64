#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QPainter;
class QRectF;

namespace pgbp {

/// The colours of the window, light or dark.
struct Tokens {
    QColor window;     ///< behind everything
    QColor panel;      ///< frames, grids
    QColor line;       ///< hairlines, grid lines
    QColor edge;       ///< border of what can be typed into or pressed: between line and muted
    QColor text;       ///< captions, digits
    QColor muted;      ///< hints, serials, previous year
    QColor accent;     ///< where the preparer is
    QColor accentSoft; ///< selected row
    QColor computed;   ///< read-only amounts
    QColor negative;   ///< amounts below zero
    QColor mark;       ///< rows the preparer described himself
};

/// The tokens in use: dark where the platform's window colour is dark, unless PGBP_THEME says "light" or "dark".
const Tokens& Theme();

/// Gives the program its palette, fonts, icon and the one style sheet. Called once, before the first widget.
void ApplyTheme(QApplication& application);

// The type scale: the platform's font, at least 10 pt, is the base; the others are told from it.
enum class Type { Base, Heading, Title, Total, Final };
QFont FontOf(Type type);

// Sizes in device-independent pixels; they grow with the font where a line of text would not fit.
inline constexpr int kUnit = 4;
inline constexpr int kPadding = 16;
int RowHeight();     ///< of a field, a caption, a button
int GridRowHeight(); ///< of a row in a grid or list
int AmountWidth();   ///< of an amount column: fifteen digits, grouped
int LeastAmount();   ///< of an amount column where there is little room; a longer amount still shows whole
int WidestPage();    ///< wider, and the eye loses the way from a caption to its amount
int HighestPage();   ///< of a page whose rows ask for less: its buttons stay near them

/// The arrow of a field that drops something down, in the middle of the box.
void PaintArrow(QPainter& painter, const QRectF& box);

} // namespace pgbp
