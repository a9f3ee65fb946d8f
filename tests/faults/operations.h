// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/program.h"
#include "tests/faults/recording_prompts.h"

#include <QPointer>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <string>

namespace kavo::test {

/// What an operation needs beside the program.
struct OperationFiles
{
    std::filesystem::path programFolder;
    QString report;              ///< where reports and templates go
    std::filesystem::path page;  ///< a downloaded records page
};

/// Does what a user does: presses the buttons of the windows, one operation after the other. What does not
/// come as it should (a window, a button) is printed, and the rest goes on.
class Operations final
{
public:
    Operations(Program& program, RecordingPrompts& prompts, OperationFiles files);

    /// Returns false when there is no operation of that name.
    bool run(const std::string& name);

private:
    using Look = std::function<void(QWidget&)>;

    [[nodiscard]] QWidget& mainWindow() { return m_program.mainWindow(); }
    void trigger(const char* entry);
    void withWindow(const char* className, const Look& look);
    void closeUnexpectedWindow();
    void logIn(const QString& nick);

    void nothing() {}
    void logInAsNew() { logIn("Nina"); }
    void logInAsOther() { logIn("Olga"); }
    void logInAsKnown() { logIn("Marek"); }
    void changeUser();
    void openAllWindows();
    void saveOptions();
    void clearPreviousResults();
    void openView();
    void saveColours();
    void restoreDefaultColours();
    void setScheme();
    void saveScheme();
    void setFontSize();
    void addBugTime();
    void removeBugTimes();
    void renameTeam();
    void resizeWindow();
    void timeResizing();
    void updateTargets();
    void exportText();
    void exportAndOpenText();
    void exportHtml();
    void saveTemplate();
    void waitForInput();
    void removeUserFolder();
    void removeProgramFolder();

    struct Operation;
    [[nodiscard]] static const Operation* find(const std::string& name);

    Program& m_program;
    RecordingPrompts& m_prompts;
    OperationFiles m_files;
    QTimer m_watch;
    QString m_expected;          ///< name of the window that an operation opens
    QPointer<QWidget> m_opened;  ///< that window, once it is there
};

}  // namespace kavo::test
