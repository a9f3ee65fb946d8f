// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updater/targets_updater_window.h"

#include "base/file_name.h"
#include "core/session.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "ui_targets_updater_window.h"
#include "updater/http_transfer.h"
#include "updater/records_page.h"

#include <QCloseEvent>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

constexpr auto kParsingDelay = 5s;
constexpr int kProgressSteps = 8;
constexpr qsizetype kChunkSize = 100;
constexpr char kOperation[] = "GET /";

}  // namespace

Form7::Form7(const kavo::Services& services, QWidget* parent)
    : Form7(services, std::make_unique<kavo::HttpTransfer>(kavo::holdsAllTimes), kParsingDelay, parent)
{
}

Form7::Form7(const kavo::Services& services, std::unique_ptr<kavo::Transfer> transfer,
             std::chrono::milliseconds parsingDelay, QWidget* parent)
    : SecondaryWindow(services, parent),
      ui(std::make_unique<Ui::Form7>()),
      inet1(std::move(transfer)),
      Timer1(new QTimer(this)),
      Timer2(new QTimer(this))
{
    ui->setupUi(this);
    inet1->setObjectName("inet1");
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(parsingDelay);
    Timer1->setSingleShot(true);
    Timer2->setObjectName("Timer2");
    Timer2->setInterval(1s);
    wire();
    Form_Load();
}

Form7::~Form7() = default;

void Form7::wire()
{
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form7::Command1_Click);             // close
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form7::Command2_Click);             // update
    kavo::on(inet1.get(), &kavo::Transfer::stateChanged, this, &Form7::inet1_StateChanged);  // transfer
    kavo::on(Timer1, &QTimer::timeout, this, &Form7::Timer1_Timer);                          // parsing
}

void Form7::Form_Load()
{
    QSizePolicy keepsItsPlace = ui->pgb->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    ui->pgb->setSizePolicy(keepsItsPlace);
    ui->pgb->setMaximum(kProgressSteps);
    ui->pgb->setVisible(false);
    ui->Command2->setFocus();
    applyColours();
}

void Form7::closeEvent(QCloseEvent* event)
{
    inet1->cancel();
    Timer1->stop();
    SecondaryWindow::closeEvent(event);
}

// Command1: close the window
void Form7::Command1_Click()
{
    close();
}

// Command2: start the update
void Form7::Command2_Click()
{
    ui->Command2->setEnabled(false);
    ui->pgb->setVisible(true);
    m_hasFailed = false;
    ui->Label1->setToolTip({});
    showStatus("Connecting...");
    ui->pgb->setValue(0);
    takeProgressStep();
    const auto address = kavo::recordsPageAddress(m_recordsHost);
    // Before the request has anything to tell: that may be an error at once.
    QMetaObject::invokeMethod(this, &Form7::showWaiting, Qt::QueuedConnection);
    inet1->execute(QUrl(kavo::toScreen(address)), kOperation);
}

/// The first thing that happens while the request is running.
void Form7::showWaiting()
{
    if (inet1->stillExecuting()) showStatus("Getting...");
}

// inet1: the transfer has come to another state
void Form7::inet1_StateChanged(int state)
{
    if (state == kavo::TransferState::ResponseCompleted) collectPage();
    if (state == kavo::TransferState::Error) {
        m_hasFailed = true;
        services().prompts.tell(this, {std::string(kavo::messages::kTransferError)});
    }
    if (!isVisible()) return;  // closed with the box: nothing is to be written then
    takeProgressStep();
    if (!inet1->stillExecuting()) endDownload();
}

/// On purpose the page is added to what an earlier run received, whose times then count again.
void Form7::collectPage()
{
    for (QByteArray chunk = inet1->getChunk(kChunkSize); !chunk.isEmpty(); chunk = inet1->getChunk(kChunkSize))
        m_page.append(chunk.constData(), static_cast<std::size_t>(chunk.size()));
}

/// Also after an error: what the window has received before is parsed then.
void Form7::endDownload()
{
    takeProgressStep();
    Timer1->start();
}

// Timer1: parse the page and write the targets
void Form7::Timer1_Timer()
{
    ui->Command2->setEnabled(true);
    showStatus("Disconnecting...");
    const kavo::RecordTimes times = kavo::cutRecordTimes(m_page);
    takeProgressStep();
    showStatus("Forming file...");
    takeProgressStep();
    const kavo::TargetRecords records = kavo::worldRecords(times);
    showStatus("Copying file...");
    takeProgressStep();
    kavo::rewriteTargets(session().programFolder, records);
    showStatus("Finished!");
    ui->pgb->setValue(ui->pgb->maximum());
    if (m_hasFailed && kavo::fileExists(kavo::targetsBackupFile(session().programFolder)))
        ui->Label1->setToolTip("The page did not come whole. The former targets are in targets.bak");
}

/// Painted at once: the steps of the parsing follow each other without a pause.
void Form7::showStatus(const QString& text)
{
    ui->Label1->setText(text);
    ui->Label1->repaint();
}

void Form7::takeProgressStep()
{
    if (ui->pgb->value() < ui->pgb->maximum()) ui->pgb->setValue(ui->pgb->value() + 1);
}
