#include "desktop/dialogs.h"

#include "desktop/captions.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace pgbp {
namespace {

QMessageBox::Icon IconOf(Icon icon)
{
    constexpr QMessageBox::Icon kIcons[] = {QMessageBox::NoIcon, QMessageBox::Information, QMessageBox::Question,
                                            QMessageBox::Warning, QMessageBox::Critical};
    return kIcons[static_cast<int>(icon)];
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
    } else {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(message.byDefault == Answer::No ? QMessageBox::No : QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    }
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
