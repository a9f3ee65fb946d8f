#include "forms/prompts.h"

#include "forms/screen_text.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace kavo {

namespace {

/// A box must not lie below the window that it belongs to, also when that one stays on top.
void keepAbove(QWidget& box, const QWidget* parent)
{
    if (parent != nullptr && parent->window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
}

int execMessage(QWidget* parent, const Message& message, QMessageBox::StandardButtons buttons)
{
    const auto icon = message.icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon;
    QMessageBox box(icon, toScreen(message.title), toScreen(message.text), buttons, parent);
    box.setTextFormat(Qt::PlainText);  // a player may be called <b>
    keepAbove(box, parent);
    return box.exec();
}

QString execFileDialog(QFileDialog& dialog, const FileQuestion& question)
{
    if (!question.filters.isEmpty()) dialog.setNameFilters(question.filters);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

void ScreenPrompts::tell(QWidget* parent, const Message& message)
{
    execMessage(parent, message, QMessageBox::Ok);
}

Answer ScreenPrompts::askYesNo(QWidget* parent, const Message& message)
{
    return execMessage(parent, message, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes ? Answer::Yes
                                                                                                : Answer::No;
}

std::optional<QString> ScreenPrompts::askLine(QWidget* parent, const LineQuestion& question)
{
    QInputDialog dialog(parent);
    dialog.setWindowTitle(question.title);
    dialog.setLabelText(question.prompt);
    dialog.setTextValue(question.preset);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue();
}

QString ScreenPrompts::askFileToOpen(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent, question.title, question.startAt);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return execFileDialog(dialog, question);
}

QString ScreenPrompts::askFileToSave(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent, question.title, question.startAt);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);  // files are replaced without asking
    return execFileDialog(dialog, question);
}

QColor ScreenPrompts::askColour(QWidget* parent, const QColor& preset)
{
    QColorDialog dialog(preset, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.currentColor() : preset;
}

}  // namespace kavo
