// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/prompts.h"

#include "forms/screen_text.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

#include <algorithm>

namespace kavo {

namespace {

/// A box must not lie below the window that it belongs to, also when that one stays on top.
void keepAbove(QWidget& box, const QWidget* parent)
{
    if (parent != nullptr && parent->window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
}

/// The width that the title of a box needs beside the icon and the buttons of its title bar.
int widthOfTitle(const QWidget& box)
{
    constexpr int kIconAndButtons = 140;  // pixels
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return metrics.horizontalAdvance(box.windowTitle()) + kIconAndButtons;
}

/// A box grows with its layout only.
void widenToTitle(QMessageBox& box)
{
    auto* layout = qobject_cast<QGridLayout*>(box.layout());
    if (layout == nullptr) return;
    const QMargins margins = layout->contentsMargins();
    auto* strut = new QSpacerItem(widthOfTitle(box) - margins.left() - margins.right(), 0);
    layout->addItem(strut, layout->rowCount(), 0, 1, layout->columnCount());
}

/// The same for a box that asks for a line; a long question gets several lines.
void arrange(QInputDialog& box)
{
    constexpr int kLongestLine = 60;  // average characters
    auto* question = box.findChild<QLabel*>();
    if (question == nullptr) return;
    const int longest = kLongestLine * question->fontMetrics().averageCharWidth();
    const bool isLong = question->sizeHint().width() > longest;
    question->setWordWrap(isLong);
    question->setMinimumWidth(std::max(widthOfTitle(box), isLong ? longest : 0));
}

int execMessage(QWidget* parent, const Message& message, QMessageBox::StandardButtons buttons)
{
    const auto icon = message.icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon;
    QMessageBox box(icon, toScreen(message.title), toScreen(message.text), buttons, parent);
    box.setTextFormat(Qt::PlainText);  // a player may be called <b>
    keepAbove(box, parent);
    widenToTitle(box);
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
    arrange(dialog);
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
