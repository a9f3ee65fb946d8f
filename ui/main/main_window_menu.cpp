// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the entries of the main window's menu do.

#include "core/users.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"
#include "reports/html_export_window.h"
#include "reports/level_statistics_window.h"
#include "reports/report_dates.h"
#include "reports/spreadsheet_export.h"
#include "reports/statistics_window.h"
#include "reports/text_export_window.h"
#include "ui/about/about_window.h"
#include "ui/about/links_window.h"
#include "ui/main/main_window.h"
#include "ui/settings/bug_times_window.h"
#include "ui/settings/options_window.h"
#include "ui/settings/view_window.h"
#include "updater/targets_updater_window.h"

void Form1::mnuUpTargets_Click()
{
    Form7 window(m_services, this);
    window.useRecordsHost(m_recordsHost);
    window.exec();
    // Also when nothing was updated: the entry has always loaded the results anew.
    reload();
}

void Form1::mnuBUGs_Click()
{
    Form8 window(m_services, this);
    kavo::on(&window, &Form8::saved, this, &Form1::reload);
    window.exec();
}

void Form1::mnuOpt_Click()
{
    Form2 window(m_services, boxParent());
    kavo::on(&window, &Form2::saved, this, &Form1::reload);
    window.exec();
}

void Form1::mnuFont_Click()
{
    Form3 window(m_services, this);
    kavo::on(&window, &Form3::saved, this, &Form1::reload);
    kavo::on(&window, &Form3::fontSizeChosen, this, &Form1::setFontSize);
    window.exec();
}

void Form1::mnuStats_Click()
{
    Form6 window(m_services, this);
    if (!m_statisticsCaption.isEmpty()) window.setWindowTitle(m_statisticsCaption);
    window.exec();
    // After the window has closed, on purpose: the first one of a run shows its own caption.
    m_statisticsCaption = "Statistics of user: " + kavo::toScreen(m_services.session.UserName);
}

void Form1::mnuLevsStats_Click()
{
    Form10(m_services, this).exec();
}

void Form1::mnuHTML_Click()
{
    Form11(m_services, m_htmlReports, this).exec();
}

void Form1::mnuExport_Click()
{
    const kavo::Session& session = m_services.session;
    // Copies, as they stand at this moment: the application may take long to come. A second press while it is
    // waited for is none; the export that it asks for is under way.
    m_export.start([table = session.table, state = session.state, colours = session.colours,
                    date = kavo::datesOf(m_services.clock.now().toSecsSinceEpoch()).date, create = m_createSpreadsheet](
                       const std::stop_token& stop) { kavo::ExportExcel(table, state, colours, date, create, stop); });
}

void Form1::mnuTextExport_Click()
{
    Form9(m_services, this).exec();
}

void Form1::mnuLinks_Click()
{
    Form4(m_services, this).exec();
}

void Form1::mnuAbout_Click()
{
    if (m_about == nullptr) {
        m_about = new frmAbout(m_services, this);
        m_about->setAttribute(Qt::WA_DeleteOnClose);
        connect(this, &Form1::closed, m_about, &QWidget::close);
    }
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}

void Form1::mnuRefresh_Click()
{
    reload();
}

void Form1::mnuChangeUser_Click()
{
    const kavo::Session& session = m_services.session;
    const bool autoLogin = kavo::readAutoLogin(session.programFolder) == kavo::kAutoLogin;
    kavo::suspendAutoLogin(session.programFolder);
    m_navigator.showLogin(kavo::toScreen(session.UserName), autoLogin);
    close();
}
