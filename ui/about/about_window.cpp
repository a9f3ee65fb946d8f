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
#include "ui_about_window.h"

#include <QFileInfo>
#include <QKeyEvent>

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
    kavo::on(ui->cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);            // close
    kavo::on(ui->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);  // about the system
    for (QLabel* link : {ui->Label1, ui->Label2, ui->Label3}) link->installEventFilter(this);
}

void frmAbout::Form_Load()
{
    ui->lblVersion->setText(toScreen(kavo::kVersionText));
    ui->cmdOK->setFocus();
    try {
        showHistory();
        applyColours();
    } catch (const std::exception&) {
        reportOnceShown(std::current_exception());
    }
    for (QLabel* link : {ui->Label1, ui->Label2, ui->Label3}) showAsLink(*link);
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

void frmAbout::followLink(const QLabel& label)
{
    services().desktop.open(label.text());
}

void frmAbout::showAsLink(QLabel& label)
{
    const QColor onLight(0, 84, 180);
    const QColor onDark(125, 185, 255);
    QPalette palette = label.palette();
    const bool isDark = palette.color(QPalette::Window).lightness() < 128;
    palette.setColor(QPalette::WindowText, isDark ? onDark : onLight);
    label.setPalette(palette);
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event)
{
    bool isHandled = false;
    for (QLabel* link : {ui->Label1, ui->Label2, ui->Label3})
        if (watched == link) kavo::guarded([&] { isHandled = handleLinkEvent(*link, *event); });
    return isHandled || SecondaryWindow::eventFilter(watched, event);
}

bool frmAbout::handleLinkEvent(QLabel& label, QEvent& event)
{
    const bool isFirst = &label == ui->Label1;
    switch (event.type()) {
    case QEvent::MouseButtonDblClick:
        if (isFirst && static_cast<QMouseEvent&>(event).button() == Qt::LeftButton) Label1_DblClick();
        return true;
    case QEvent::MouseButtonPress: return true;  // or the release would go elsewhere
    case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        const bool isClick = mouse.button() == Qt::LeftButton && label.rect().contains(mouse.position().toPoint());
        if (isClick && !isFirst) &label == ui->Label2 ? Label2_Click() : Label3_Click();
        return true;
    }
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent&>(event).key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
        followLink(label);
        return true;
    }
    case QEvent::FocusIn: label.setFrameShape(QFrame::Box); return false;
    case QEvent::FocusOut: label.setFrameShape(QFrame::NoFrame); return false;
    default: return false;
    }
}
