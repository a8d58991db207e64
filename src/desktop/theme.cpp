#include "desktop/theme.h"

#include "desktop/program_icon.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>

#include <algorithm>

namespace pgbp {
namespace {

const Tokens kLight = {
    .window = "#F4F5F7",
    .panel = "#FFFFFF",
    .line = "#D8DDE4",
    .edge = "#A3ACB8",
    .text = "#1B2430",
    .muted = "#5D6978",
    .accent = "#1D5FBF",
    .accentSoft = "#E6EFFB",
    .computed = "#F4F5F7",
    .negative = "#B3261E",
    .mark = "#FFF7D6",
};

const Tokens kDark = {
    .window = "#1E2227",
    .panel = "#272C33",
    .line = "#3A414B",
    .edge = "#5F6976",
    .text = "#E6EAF0",
    .muted = "#9AA6B5",
    .accent = "#6CA8FF",
    .accentSoft = "#2B3A50",
    .computed = "#22272D",
    .negative = "#FF8A80",
    .mark = "#4A4320",
};

const Tokens* theme = &kLight;

/// What stands in a label, or in a tip, is data: mark-up in a name is shown as it was typed.
class PlainTextStyle : public QProxyStyle {
  public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;

    void polish(QWidget* widget) override
    {
        QProxyStyle::polish(widget);
        if (auto* label = qobject_cast<QLabel*>(widget))
            label->setTextFormat(Qt::PlainText);
    }
};

const Tokens& Choose(const QPalette& platform)
{
    const QByteArray wish = qgetenv("PGBP_THEME");
    const bool dark = wish.isEmpty() ? platform.color(QPalette::Window).lightness() < 128 : wish == "dark";
    return dark ? kDark : kLight;
}

QPalette PaletteOf(const Tokens& tokens)
{
    QPalette palette;
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, tokens.window},
        {QPalette::WindowText, tokens.text},
        {QPalette::Base, tokens.panel},
        {QPalette::AlternateBase, tokens.computed},
        {QPalette::Text, tokens.text},
        {QPalette::PlaceholderText, tokens.muted},
        {QPalette::Button, tokens.panel},
        {QPalette::ButtonText, tokens.text},
        {QPalette::Highlight, tokens.accent},
        {QPalette::HighlightedText, tokens.panel},
        {QPalette::ToolTipBase, tokens.panel},
        {QPalette::ToolTipText, tokens.text},
        {QPalette::Link, tokens.accent},
        {QPalette::BrightText, tokens.negative},
        {QPalette::Light, tokens.panel},
        {QPalette::Midlight, tokens.line},
        {QPalette::Mid, tokens.edge},
        {QPalette::Dark, tokens.edge},
        {QPalette::Shadow, tokens.window.darker()},
    };
    for (const auto& [role, color] : roles)
        palette.setColor(role, color);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, tokens.muted);
    return palette;
}

// What has a border can be typed into or pressed; what is only read lies on `computed` without one.
constexpr const char* kSheet = R"(
QFrame[panel="true"] { background: @panel; border: 1px solid @line; border-radius: 6px; }
QFrame[over="true"] { background: @panel; border: 1px solid @accent; border-radius: 6px; }
QFrame[rule="single"] { background: @edge; }
QFrame[rule="double"] { border-top: 1px solid @text; border-bottom: 1px solid @text; }
QScrollArea, QScrollArea > QWidget > QWidget[page="true"] { background: transparent; border: none; }

QLineEdit, QPlainTextEdit, QComboBox {
    background: @panel; border: 1px solid @edge; border-radius: 3px; padding: 0 5px;
    selection-background-color: @accent; selection-color: @panel; }
QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus { border: 2px solid @accent; padding: 0 4px; }
QLineEdit[figures="true"] { padding-right: 3px; }
QLineEdit[figures="true"]:focus { padding-right: 2px; }
QPlainTextEdit { padding: 3px; }
QPlainTextEdit:focus { padding: 2px; }
QLineEdit:disabled, QLineEdit:read-only, QPlainTextEdit:disabled, QPlainTextEdit:read-only, QComboBox:disabled {
    background: @computed; border-color: @computed; color: @text; }
QLineEdit:read-only:focus, QPlainTextEdit:read-only:focus { border-color: @accent; }
QLineEdit[negative="true"], QLineEdit[negative="true"]:disabled { color: @negative; }
QLineEdit[marked="true"], QLineEdit[marked="true"]:disabled { background: @accent; color: @panel; }
QLineEdit[cell="true"], QLineEdit[cell="true"]:focus, QComboBox[cell="true"], QComboBox[cell="true"]:focus {
    background: @accent-soft; border: 2px solid @accent; border-radius: 0; padding: 0 4px; }
QComboBox { combobox-popup: 0; }
QComboBox::drop-down { border: none; width: 20px; }
QComboBox QAbstractItemView {
    background: @panel; border: 1px solid @edge; selection-background-color: @accent-soft; selection-color: @text; }

QPushButton {
    background: @panel; color: @text; border: 1px solid @edge; border-radius: 4px; padding: 0 13px; }
QPushButton[row="true"] { text-align: left; padding: 0 9px; }
QPushButton:hover { background: @accent-soft; }
QPushButton:pressed { background: @line; }
QPushButton:focus { border: 2px solid @accent; padding: 0 12px; }
QPushButton[row="true"]:focus { padding: 0 8px; }
QPushButton[bottom="true"] { padding: 0 5px; }
QPushButton[bottom="true"]:focus { padding: 0 4px; }
QPushButton[main="true"] { background: @accent; color: @panel; border-color: @accent; }
QPushButton[main="true"]:hover { background: @accent; }
QPushButton[main="true"]:focus { border: 2px solid @text; }
QPushButton:disabled, QPushButton[main="true"]:disabled {
    background: transparent; color: @muted; border-color: @line; }
QDialogButtonBox QPushButton { min-width: 60px; min-height: 26px; }
QCalendarWidget QToolButton { color: @panel; }
QToolButton[help="true"] {
    background: transparent; color: @accent; border: 1px solid @accent; border-radius: 9px; }
QToolButton[help="true"]:hover { background: @accent-soft; }

QCheckBox, QRadioButton { border: 2px solid transparent; border-radius: 3px; padding: 0 2px; }
QCheckBox:focus, QRadioButton:focus { border-color: @accent; }

QAbstractScrollArea::corner { background: transparent; border: none; }
QScrollBar { background: transparent; border: none; margin: 0; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @edge; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 24px; }
QScrollBar::handle:horizontal { min-width: 24px; }
QScrollBar::handle:hover { background: @muted; }
QScrollBar::add-line, QScrollBar::sub-line, QScrollBar::add-page, QScrollBar::sub-page {
    background: none; border: none; width: 0; height: 0; }

QTableView, QListView {
    background: @panel; border: 1px solid @edge; border-radius: 3px; padding: 1px; outline: none; }
QTableView:focus, QListView:focus { border: 2px solid @accent; padding: 0; }
QHeaderView { background: @computed; border: none; }
QHeaderView::section {
    background: @computed; color: @muted; border: none; border-bottom: 1px solid @edge; padding: 0 8px; }
)";

QString Sheet(const Tokens& tokens)
{
    QString sheet = QString::fromLatin1(kSheet);
    const std::pair<const char*, QColor> names[] = {
        // a name that begins another one comes after it
        {"@accent-soft", tokens.accentSoft},
        {"@accent", tokens.accent},
        {"@panel", tokens.panel},
        {"@line", tokens.line},
        {"@edge", tokens.edge},
        {"@text", tokens.text},
        {"@muted", tokens.muted},
        {"@computed", tokens.computed},
        {"@negative", tokens.negative},
    };
    for (const auto& [name, color] : names)
        sheet.replace(QLatin1String(name), color.name());
    return sheet;
}

int TextHeight() { return QFontMetrics(QApplication::font()).height(); }

} // namespace

const Tokens& Theme() { return *theme; }

void ApplyTheme(QApplication& application)
{
    theme = &Choose(QApplication::palette());
    QFont base = QApplication::font();
    base.setPointSizeF(std::max(10.0, base.pointSizeF()));
    QApplication::setFont(base);
    QApplication::setStyle(new PlainTextStyle(QStyleFactory::create("Fusion")));
    QApplication::setPalette(PaletteOf(*theme));
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setDesktopFileName("pgbp"); // a desktop takes icon and name of a window from there
    application.setStyleSheet(Sheet(*theme));
}

QFont FontOf(Type type)
{
    struct Step {
        double size;
        QFont::Weight weight;
    };
    constexpr Step kScale[] = {
        {1.0, QFont::Normal},   {1.1, QFont::DemiBold}, {1.3, QFont::DemiBold},
        {1.0, QFont::DemiBold}, {1.2, QFont::DemiBold},
    };
    const Step& step = kScale[static_cast<int>(type)];
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * step.size);
    font.setWeight(step.weight);
    return font;
}

int RowHeight()
{
    static const int height = std::max(24, TextHeight() + 2 * kUnit);
    return height;
}

int GridRowHeight()
{
    static const int height = std::max(22, TextHeight() + kUnit);
    return height;
}

int AmountWidth()
{
    static const int width = std::max(QFontMetrics(FontOf(Type::Final)).horizontalAdvance(QString(15, '0')),
                                      QFontMetrics(FontOf(Type::Base)).horizontalAdvance("-0,00,00,00,00,00,000.00")) +
                             4 * kUnit;
    return width;
}

int LeastAmount()
{
    static const int width = QFontMetrics(FontOf(Type::Base)).horizontalAdvance("00,00,00,000.00") + 4 * kUnit;
    return width;
}

int WidestPage() { return 57 * RowHeight(); }

int HighestPage() { return 27 * RowHeight(); }

void PaintArrow(QPainter& painter, const QRectF& box)
{
    const QPointF middle = box.center();
    const QPointF arrow[] = {middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme().muted, 1.5));
    painter.drawPolyline(arrow, 3);
}

} // namespace pgbp
