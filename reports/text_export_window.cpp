// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/text_export_window.h"

#include "base/file_name.h"
#include "base/text.h"
#include "base/text_file.h"
#include "core/session.h"
#include "forms/desktop.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "reports/text_export.h"
#include "ui_text_export_window.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

using kavo::fromScreen;

namespace {

/// Lets the user interface catch up before the report opens. Bounded, for a desktop that never rests.
void letInterfaceCatchUp()
{
    constexpr int kTurns = 10001;
    const QDeadlineTimer deadline(std::chrono::seconds(3));
    for (int turn = 0; turn < kTurns && !deadline.hasExpired(); ++turn) QCoreApplication::processEvents();
}

}  // namespace

Form9::Form9(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form9>())
{
    ui->setupUi(this);
    enableExport(false);
    wire();
    applyColours();
}

Form9::~Form9() = default;

void Form9::wire()
{
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form9::Command1_Click);  // browse
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form9::Command2_Click);  // export
    kavo::on(ui->Command3, &QPushButton::clicked, this, &Form9::Command3_Click);  // close
}

// Command1: choose the path
void Form9::Command1_Click()
{
    const QString chosen = services().prompts.askFileToSave(this, {.startAt = ui->Text1->text()});
    const bool isNamed = !kavo::trimBlanks(fromScreen(chosen)).empty();
    if (isNamed) ui->Text1->setText(chosen);
    enableExport(isNamed);
}

void Form9::enableExport(bool isEnabled)
{
    ui->Command2->setEnabled(isEnabled);
    ui->Command2->setToolTip(isEnabled ? QString() : "Choose a file with Browse first");
}

// Command2: write the report
void Form9::Command2_Click()
{
    using namespace kavo::messages;
    const auto report = kavo::locateTyped(session().programFolder, fromScreen(ui->Text1->text()));
    kavo::exportText(session(), report);
    const kavo::Message offer{.text = std::string(kExported), .title = std::string(kExportedTitle)};
    if (services().prompts.askYesNo(this, offer) == kavo::Answer::Yes) openReport(report);
}

std::filesystem::path Form9::launcher() const
{
    return kavo::locate(session().programFolder / "tmp.bat");
}

void Form9::openReport(const std::filesystem::path& report)
{
    const std::string typed = fromScreen(ui->Text1->text());
    kavo::replaceFile(launcher(), "@echo off\r\n\"" + typed + "\"\r\nexit\r\n");
    letInterfaceCatchUp();
    // Not through the batch file: elsewhere nothing can run one, Windows reads its bytes in a code page of its own, and
    // nothing of a path may ever be run.
    services().desktop.open(kavo::pathToScreen(report));
}

// Command3: delete the launcher and close
void Form9::Command3_Click()
{
    try {
        kavo::deleteFile(launcher());
    } catch (const std::exception&) {
        // The window closes whether or not it could be deleted.
    }
    close();
}

void Form9::closeRequested()
{
    Command3_Click();
}
