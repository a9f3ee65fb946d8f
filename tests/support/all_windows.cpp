// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/all_windows.h"

#include "ui/main/main_window.h"

#include <QAction>
#include <QApplication>
#include <QTimer>

namespace kavo::test {

namespace {

QWidget* visibleWindow(const char* className)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1StringView(className)) return window;
    return nullptr;
}

}  // namespace

const std::vector<WindowRow>& allWindows()
{
    static const std::vector<WindowRow> kWindows = {
        {.className = "Form7",
         .caption = "Targets-updater",
         .entry = "mnuUpTargets",
         .image = "targets-updater",
         .key = Qt::CTRL | Qt::Key_R,
         .controls = {"Label1", "Label2", "pgb", "Command2", "Command1"}},
        {.className = "Form8",
         .caption = "BUGs",
         .entry = "mnuBUGs",
         .image = "bug-times",
         .key = Qt::CTRL | Qt::Key_B,
         .controls = {"Frame1", "List1", "Command1", "Command2", "Command3", "Frame2", "List2", "Command4", "Command5",
                      "Command6", "Command7", "Command8"}},
        {.className = "Form2",
         .caption = "Options",
         .entry = "mnuOpt",
         .image = "options",
         .key = Qt::Key_F2,
         .controls = {"Frame1", "Text1", "Command1", "Frame2", "Option1", "Option2", "Text2", "Command2", "Option3",
                      "Combo1", "Command5", "Command3", "Command4"}},
        {.className = "Form3",
         .caption = "View",
         .entry = "mnuFont",
         .image = "view",
         .key = Qt::Key_F3,
         .controls = {"Frame2",   "Label1",   "Label2",  "Label3",   "Label4",   "lCol_0",   "lCol_1",   "lCol_2",
                      "lCol_3",   "Frame3",   "Label5",  "Label6",   "Label7",   "Label8",   "Label9",   "Label10",
                      "Label11",  "Label12",  "Label13", "Label14",  "Command3", "Command2", "Command4", "Frame4",
                      "cmbSheme", "Command5", "Text2",   "Command6", "Frame1",   "Text1",    "Command1"}},
        {.className = "Form6",
         .caption = "Statistics",
         .entry = "mnuStats",
         .image = "statistics",
         .key = Qt::Key_F7,
         .controls = {"Frame1",       "Option1",      "Option2",      "Option3",      "Text1",
                      "Command1",     "Label1",       "Label2",       "Label3",       "Label4",
                      "Label5",       "Label6",       "Label7",       "ProgressBar1", "ProgressBar2",
                      "ProgressBar3", "ProgressBar4", "ProgressBar5", "ProgressBar6", "ProgressBar7"}},
        {.className = "Form10",
         .caption = "Levels' statistics",
         .entry = "mnuLevsStats",
         .image = "level-statistics",
         .key = Qt::Key_F8,
         .controls = {"Command5", "Frame2", "Label2_0", "Label2_6", "pgb_0", "pgb_1", "pgb_2", "pgb_3", "pgb_4",
                      "pgb_5", "pgb_6", "Label1_0", "Label1_6", "Frame1", "Command4", "Command3", "Command2",
                      "Command1", "Combo1"}},
        {.className = "Form11",
         .caption = "eXtended HTML Export",
         .entry = "mnuHTML",
         .image = "html-export",
         .key = Qt::CTRL | Qt::Key_H,
         .closesOnEscape = false,
         .controls = {"Frame3", "Command5", "Command4", "Command3", "Command2", "Frame2",   "Frame7",
                      "Text5",  "Command8", "Combo4",   "Frame6",   "Command6", "Combo2",   "Text4",
                      "Frame5", "Command9", "Combo1",   "Text3",    "Frame4",   "Command7", "Combo3",
                      "Text2",  "Frame1",   "Command1", "Text1"}},
        {.className = "Form9",
         .caption = "TextFile Export",
         .entry = "mnuTextExport",
         .image = "text-export",
         .key = Qt::CTRL | Qt::Key_T,
         .controls = {"Command3", "Command2", "Frame1", "Command1", "Text1", "Label1"}},
        {.className = "Form4",
         .caption = "Links:",
         .entry = "mnuLinks",
         .image = "links",
         .key = Qt::Key_F9,
         .controls = {"List1", "List2", "Label1", "Command2"}},
        {.className = "frmAbout",
         .caption = "About NRL Kavo Timing",
         .entry = "mnuAbout",
         .image = "about",
         .key = Qt::Key_F1,
         .controls = {"lblTitle", "lblVersion", "Frame1", "Text1", "Label1", "Label2", "Label3", "cmdOK",
                      "cmdSysInfo"}},
    };
    return kWindows;
}

bool withWindow(const char* className, const std::function<void()>& open, const std::function<void(QWidget&)>& look)
{
    bool came = false;
    const auto lookAtIt = [&] {
        QWidget* window = visibleWindow(className);
        if (window == nullptr || came) return;
        came = true;
        // Closed in any case: a modal window that stays would keep its opener waiting for ever.
        const QMetaObject::Connection destroyed =
            QObject::connect(window, &QObject::destroyed, [&window] { window = nullptr; });
        look(*window);
        QObject::disconnect(destroyed);
        if (window != nullptr && window->isVisible()) window->close();
    };
    QTimer modal;  // acts inside the event loop of a modal window, whenever that begins
    QObject::connect(&modal, &QTimer::timeout, lookAtIt);
    modal.start(0);
    open();
    modal.stop();
    lookAtIt();
    return came;
}

bool withWindow(Form1& mainWindow, const WindowRow& row, const std::function<void(QWidget&)>& look)
{
    auto* entry = mainWindow.findChild<QAction*>(QLatin1StringView(row.entry));
    return entry != nullptr && withWindow(
                                   row.className, [entry] { entry->trigger(); }, look);
}

}  // namespace kavo::test
