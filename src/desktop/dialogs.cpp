#include "desktop/dialogs.h"

#include "desktop/captions.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

namespace pgbp {
namespace {

QMessageBox::Icon IconOf(Icon icon)
{
    constexpr QMessageBox::Icon kIcons[] = {QMessageBox::NoIcon, QMessageBox::Information, QMessageBox::Question,
                                            QMessageBox::Warning, QMessageBox::Critical};
    return kIcons[static_cast<int>(icon)];
}

/// The title is whole: as wide as the window system's bold font may make it, with the icon and the cross beside it.
void MakeRoomForTitle(QMessageBox& box)
{
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!grid)
        return;
    const int width = QFontMetrics(FontOf(Type::Title)).horizontalAdvance(box.windowTitle()) + 20 * kUnit;
    grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0, 1,
                  grid->columnCount());
}

/// The buttons look and sound like those of a screen.
void Dress(QMessageBox& box, QMessageBox::StandardButton which, const QString& caption)
{
    auto* button = qobject_cast<QPushButton*>(box.button(which));
    if (!button)
        return;
    button->setText(caption);
    button->setIcon({});
    button->setProperty("main", button == box.defaultButton());
    button->style()->unpolish(button); // it was dressed when the box was laid out
    button->style()->polish(button);
}

std::optional<std::filesystem::path> PathOf(const QString& chosen)
{
    if (chosen.isEmpty())
        return std::nullopt;
    return std::filesystem::path(chosen.toStdString());
}

} // namespace

Answer WindowMessageBoxes::Show(const Message& message)
{
    if (before)
        before();
    QMessageBox box(IconOf(message.icon), message.title.empty() ? programName_ : Text(message.title),
                    Text(message.text), QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    if (message.buttons == Buttons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
    } else {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(message.byDefault == Answer::No ? QMessageBox::No : QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    }
    Dress(box, QMessageBox::Ok, "&OK");
    Dress(box, QMessageBox::Yes, "&Yes");
    Dress(box, QMessageBox::No, "&No");
    MakeRoomForTitle(box);
    const int pressed = box.exec();
    if (message.buttons == Buttons::Ok)
        return Answer::Ok;
    return pressed == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

std::optional<std::filesystem::path> WindowFileDialogs::AskOpen(const std::string& title, const std::string& pattern)
{
    return PathOf(QFileDialog::getOpenFileName(QApplication::activeWindow(), Text(title), {}, Text(pattern)));
}

std::optional<std::filesystem::path> WindowFileDialogs::AskSave(const std::string& title, const std::string& pattern)
{
    return PathOf(QFileDialog::getSaveFileName(QApplication::activeWindow(), Text(title), {}, Text(pattern)));
}

void ShowHourglass(bool busy)
{
    busy ? QApplication::setOverrideCursor(Qt::WaitCursor) : QApplication::restoreOverrideCursor();
}

} // namespace pgbp
