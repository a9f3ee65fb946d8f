// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A walk through all windows, for the eyes of a tracer (tests/trace/connections.py).

#include "tests/support/page_server.h"
#include "tests/support/recording_spreadsheet.h"
#include "tests/support/wait_until.h"
#include "tests/support/window_fixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QNetworkProxy>
#include <QPushButton>

#include <cstdio>

namespace {

using kavo::test::PageServer;
using kavo::test::waitUntil;
using kavo::test::WindowRow;

/// In a call to the system of its own, which a tracer sees between the others.
void say(const QString& text)
{
    static_cast<void>(std::fflush(stdout));
    std::printf("%s\n", qPrintable(text));
    static_cast<void>(std::fflush(stdout));
}

class Walk : public kavo::test::ProgramTest
{
protected:
    Walk() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    void logIn()
    {
        start();
        auto& nick = control<QComboBox>(loginWindow(), "Combo1");
        nick.setCurrentText("Marek");
        click(control<QPushButton>(loginWindow(), "cmdOK"));
        ASSERT_TRUE(mainWindow().isVisible());
    }

    void lookAtEveryWindow()
    {
        for (const WindowRow& row : kavo::test::allWindows())
            EXPECT_TRUE(withWindow(mainWindow(), row, [](QWidget& window) { EXPECT_FALSE(window.grab().isNull()); }))
                << row.className;
    }

    void runEveryEntryWithoutAWindow()
    {
        kavo::test::SheetRecord record;
        mainWindow().setSpreadsheet(kavo::test::recordingSpreadsheet(record));
        for (const char* entry : {"mnuWR", "mnuVic1", "mnuFiltNone", "mnuRefresh", "mnuExport"})
            mainWindow().findChild<QAction*>(QLatin1StringView(entry))->trigger();
        EXPECT_TRUE(waitUntil([] { return QGuiApplication::overrideCursor() == nullptr; }));
        EXPECT_FALSE(record.steps.empty());
    }

    /// Says where the only connection of the walk goes before it is made.
    void update(const PageServer& server)
    {
        program->useRecordsHost(server.host().toStdString());
        onModalWindow([&server](QWidget& updater) {
            updater.findChild<QTimer*>("Timer1")->setInterval(0);
            say("walk: Update! asks " + server.host());
            click(control<QPushButton>(updater, "Command2"));
            const auto& label = control<QLabel>(updater, "Label1");
            EXPECT_TRUE(waitUntil([&label] { return label.text() == "Finished!"; }));
            say("walk: Finished!");
            updater.close();
        });
        mainWindow().mnuUpTargets_Click();
    }
};

TEST_F(Walk, ThroughAllWindowsEndsWithAnUpdate)
{
    const PageServer server(kavo::test::always(kavo::test::response("<html></html>")));
    logIn();
    lookAtEveryWindow();
    runEveryEntryWithoutAWindow();
    update(server);
    EXPECT_EQ(server.requests().size(), 1);
    lookAtEveryWindow();
    mainWindow().mnuChangeUser_Click();
    EXPECT_TRUE(loginWindow().isVisible());
}

}  // namespace
