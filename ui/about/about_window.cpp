// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/about_window.h"

#include "base/file_name.h"
#include "base/text_file.h"
#include "core/session.h"
#include "core/version.h"
#include "forms/desktop.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "ui/about/title_font.h"
#include "ui_about_window.h"

#include <QFileInfo>

#include <array>

using kavo::toScreen;

namespace {

/// Programs that tell about the system, with their arguments; the first one on the search path is started.
const std::array<QStringList, 8> kSystemInformation = {{
    {"kinfocenter"},
    {"hardinfo2"},
    {"hardinfo"},
    {"gnome-control-center", "info-overview"},
    {"gnome-system-monitor"},
    {"plasma-systemmonitor"},
    {"mate-system-monitor"},
    {"xfce4-taskmanager"},
}};

}  // namespace

frmAbout::frmAbout(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    wire();
    Form_Load();
}

frmAbout::~frmAbout() = default;

void frmAbout::wire()
{
    using kavo::LinkLabel;
    kavo::on(ui->cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);            // close
    kavo::on(ui->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);  // about the system
    kavo::on(ui->Label1, &LinkLabel::doubleClicked, this, &frmAbout::Label1_DblClick);   // a link
    kavo::on(ui->Label1, &LinkLabel::chosenByKey, this, &frmAbout::Label1_DblClick);     // the same
    kavo::on(ui->Label2, &LinkLabel::clicked, this, &frmAbout::Label2_Click);            // another
    kavo::on(ui->Label2, &LinkLabel::chosenByKey, this, &frmAbout::Label2_Click);        // the same
    kavo::on(ui->Label3, &LinkLabel::clicked, this, &frmAbout::Label3_Click);            // another
    kavo::on(ui->Label3, &LinkLabel::chosenByKey, this, &frmAbout::Label3_Click);        // the same
}

void frmAbout::Form_Load()
{
    kavo::followDesktopFont(*ui->lblTitle);
    ui->lblVersion->setText(toScreen(kavo::kVersionText));
    ui->cmdOK->setFocus();
    try {
        showHistory();
        applyColours();
    } catch (const std::exception&) {
        reportOnceShown(std::current_exception());
    }
    for (kavo::LinkLabel* link : {ui->Label1, ui->Label2, ui->Label3}) link->showAsLink();
}

void frmAbout::showHistory()
{
    const auto history = kavo::locate(session().programFolder / "history.txt");
    ui->Text1->setPlainText(kavo::pageToScreen(kavo::readContent(history).view()));
}

// cmdOK: close the window
void frmAbout::cmdOK_Click()
{
    close();
}

// cmdSysInfo: tell about the system
void frmAbout::cmdSysInfo_Click()
{
    StartSysInfo();
}

void frmAbout::StartSysInfo()
{
    QStringList command = systemInformationCommand();
    if (!command.isEmpty() && services().desktop.start(command.takeFirst(), command)) return;
    services().prompts.tell(this, {std::string(kavo::messages::kNoSystemInformation)});
}

/// Program and arguments; empty when there is none.
QStringList frmAbout::systemInformationCommand() const
{
    kavo::Desktop& desktop = services().desktop;
    const auto path = desktop.registryValue(R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH");
    if (path && !path->isEmpty()) return {*path};
    if (const auto folder = desktop.registryValue(R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO")) {
        const QString program = *folder + R"(\MSINFO32.EXE)";
        if (QFileInfo::exists(program)) return {program};
    }
    for (const QStringList& known : kSystemInformation) {
        const QString program = desktop.findProgram(known.first());
        if (!program.isEmpty()) return QStringList(program) + known.mid(1);
    }
    return {};
}

// Label1 to Label3: links
void frmAbout::Label1_DblClick()
{
    followLink(*ui->Label1);
}

void frmAbout::Label2_Click()
{
    followLink(*ui->Label2);
}

void frmAbout::Label3_Click()
{
    followLink(*ui->Label3);
}

void frmAbout::followLink(const kavo::LinkLabel& label)
{
    services().desktop.open(label.text());
}
