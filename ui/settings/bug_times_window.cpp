// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/bug_times_window.h"

#include "core/session.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "ui_bug_times_window.h"

using kavo::fromScreen;
using kavo::toScreen;

namespace {

constexpr int kBytes = Qt::UserRole;  ///< of an entry, as they stand in the file

void append(QListWidget& list, const std::string& entry)
{
    auto* item = new QListWidgetItem(toScreen(entry), &list);
    item->setData(kBytes, QByteArray::fromStdString(entry));
}

std::vector<std::string> entriesOf(const QListWidget& list)
{
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(list.count()));
    for (int row = 0; row < list.count(); ++row)
        entries.push_back(list.item(row)->data(kBytes).toByteArray().toStdString());
    return entries;
}

void removeSelected(QListWidget& list)
{
    // Nothing is selected afterwards, so that a second press does not take the neighbour along. The button
    // stays as it is: only the user's choice in the list changes it.
    const QSignalBlocker quiet(list);
    qDeleteAll(list.selectedItems());
    list.setCurrentRow(-1);
}

void removeAll(QListWidget& list)
{
    const QSignalBlocker quiet(list);
    list.clear();
}

QString captionFor(const std::string& player)
{
    return "List of bug-times for " + kavo::captionToScreen(player);
}

/// The title asks for room of its own, but a long name must not make the window wider than the screen.
void allowToCut(QGroupBox& frame, QGridLayout& lists)
{
    const QMargins margins = lists.contentsMargins();
    const int title = frame.minimumSizeHint().width() - margins.left() - margins.right();
    lists.addItem(new QSpacerItem(title, 0, QSizePolicy::Preferred, QSizePolicy::Minimum), 0, 0, 1,
                  lists.columnCount());
    frame.setMinimumWidth(lists.minimumSize().width());
}

}  // namespace

Form8::Form8(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form8>())
{
    ui->setupUi(this);
    ui->Command1->setFocus();
    wire();
    Form_Load();
}

Form8::~Form8() = default;

void Form8::wire()
{
    kavo::on(ui->List1, &QListWidget::itemSelectionChanged, this, &Form8::List1_Click);  // entries of player 1
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form8::Command1_Click);         // add one
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form8::Command2_Click);         // remove it
    kavo::on(ui->Command3, &QPushButton::clicked, this, &Form8::Command3_Click);         // clear all
    kavo::on(ui->List2, &QListWidget::itemSelectionChanged, this, &Form8::List2_Click);  // entries of player 2
    kavo::on(ui->Command4, &QPushButton::clicked, this, &Form8::Command4_Click);         // add one
    kavo::on(ui->Command5, &QPushButton::clicked, this, &Form8::Command5_Click);         // remove it
    kavo::on(ui->Command6, &QPushButton::clicked, this, &Form8::Command6_Click);         // clear all
    kavo::on(ui->Command7, &QPushButton::clicked, this, &Form8::Command7_Click);         // save
    kavo::on(ui->Command8, &QPushButton::clicked, this, &Form8::close);                  // close
}

void Form8::Form_Load()
{
    ui->Frame1->setTitle(captionFor(session().state.Player1Name));
    ui->Frame2->setTitle(captionFor(session().state.Player2Name));
    allowToCut(*ui->Frame1, *ui->listLayout1);
    allowToCut(*ui->Frame2, *ui->listLayout2);
    applyColours();
    const kavo::BugTimeEntries entries = kavo::readBugTimes(currentUserFolder());
    for (const std::string& entry : entries.player1) append(*ui->List1, entry);
    for (const std::string& entry : entries.player2) append(*ui->List2, entry);
}

void Form8::addEntry(QListWidget& list)
{
    const kavo::LineQuestion question{toScreen(kavo::messages::kAddBugTimeTitle),
                                      toScreen(kavo::messages::kAddBugTimePrompt),
                                      toScreen(kavo::messages::kBugTimePreset)};
    // A cancelled box counts as an empty answer.
    const std::string entry = fromScreen(services().prompts.askLine(this, question).value_or(QString()));
    if (kavo::isBugTimeEntry(entry))
        append(list, entry);
    else
        services().prompts.tell(this, {std::string(kavo::messages::kNotCorrect)});
}

// List1 and its buttons: player 1
void Form8::List1_Click()
{
    ui->Command2->setEnabled(!ui->List1->selectedItems().isEmpty());
}

void Form8::Command1_Click()  // Add
{
    addEntry(*ui->List1);
}

void Form8::Command2_Click()  // Remove
{
    removeSelected(*ui->List1);
}

void Form8::Command3_Click()  // Clear
{
    removeAll(*ui->List1);
}

// List2 and its buttons: player 2
void Form8::List2_Click()
{
    ui->Command5->setEnabled(!ui->List2->selectedItems().isEmpty());
}

void Form8::Command4_Click()  // Add
{
    addEntry(*ui->List2);
}

void Form8::Command5_Click()  // Remove
{
    removeSelected(*ui->List2);
}

void Form8::Command6_Click()  // Clear
{
    removeAll(*ui->List2);
}

// Command7: write the file and reload
void Form8::Command7_Click()
{
    kavo::saveBugTimes(currentUserFolder(), {entriesOf(*ui->List1), entriesOf(*ui->List2)});
    emit saved();
}
