// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/links_window.h"

#include "base/text_file.h"
#include "core/links.h"
#include "core/session.h"
#include "forms/desktop.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"
#include "ui_links_window.h"

#include <QShortcut>

Form4::Form4(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form4>())
{
    ui->setupUi(this);
    wire();
    Form_Load();
}

Form4::~Form4() = default;

void Form4::wire()
{
    kavo::on(ui->List1, &QListWidget::itemDoubleClicked, this, &Form4::List1_DblClick);  // addresses
    for (const int key : {Qt::Key_Return, Qt::Key_Enter})
        kavo::on(new QShortcut(key, ui->List1, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                 &Form4::List1_DblClick);
    kavo::on(ui->List1, &QListWidget::currentRowChanged, this, [this](int row) { select(*ui->List2, row); });
    kavo::on(ui->List2, &QListWidget::currentRowChanged, this, [this](int row) { select(*ui->List1, row); });
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form4::Command2_Click);  // close
}

void Form4::Form_Load()
{
    try {
        fillLists();
        applyColours();
    } catch (const std::exception&) {
        reportOnceShown(std::current_exception());
    }
}

/// A last address without its description is shown as far as it goes, and then reported.
void Form4::fillLists()
{
    const auto path = kavo::linksFile(session().programFolder);
    const kavo::Links links = kavo::parseLinks(kavo::readFile(path));
    for (const std::string& address : links.addresses) ui->List1->addItem(kavo::toScreen(address));
    for (const std::string& description : links.descriptions) ui->List2->addItem(kavo::toScreen(description));
    ui->List1->setCurrentRow(0);
    if (links.endsEarly()) throw kavo::RunTimeError(kavo::Failure::InputPastEnd, path);
}

/// What belongs together is selected together.
void Form4::select(QListWidget& list, int row)
{
    if (row >= 0 && row < list.count()) list.setCurrentRow(row);
}

// List1: follow a link
void Form4::List1_DblClick()
{
    if (const QListWidgetItem* selected = ui->List1->currentItem()) services().desktop.open(selected->text());
}

// Command2: close the window
void Form4::Command2_Click()
{
    close();
}
