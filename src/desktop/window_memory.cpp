#include "desktop/window_memory.h"

#include <QStringList>
#include <QWidget>

namespace pgbp {
namespace {

constexpr const char* kPlace = "place";

QString KeyOf(const QString& grid) { return "columns/" + grid; }

} // namespace

WindowMemory::WindowMemory() : settings_(QSettings::IniFormat, QSettings::UserScope, "pgbp", "window") {}

WindowMemory::WindowMemory(const QString& file) : settings_(file, QSettings::IniFormat) {}

void WindowMemory::Show(QWidget& window) const
{
    // the toolkit moves a window that would lie beyond the screens
    if (window.restoreGeometry(settings_.value(kPlace).toByteArray()))
        window.show();
    else
        window.showMaximized();
}

void WindowMemory::Keep(const QWidget& window) { settings_.setValue(kPlace, window.saveGeometry()); }

std::vector<int> WindowMemory::Columns(const QString& grid, std::size_t count) const
{
    std::vector<int> widths;
    for (const QString& width : settings_.value(KeyOf(grid)).toStringList())
        widths.push_back(width.toInt());
    return widths.size() == count ? widths : std::vector<int>(count, 0);
}

void WindowMemory::KeepColumns(const QString& grid, const std::vector<int>& widths)
{
    QStringList texts;
    for (const int width : widths)
        texts << QString::number(width);
    settings_.setValue(KeyOf(grid), texts);
}

} // namespace pgbp
