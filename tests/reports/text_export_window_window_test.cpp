// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "reports/text_export.h"
#include "reports/text_export_window.h"
#include "tests/support/report_window_fixture.h"

#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

using kavo::Answer;
using kavo::Message;

const Message kOffer{.text = "Successfully exported. Wanna 2 take a look?", .title = "Successfully exported"};

class TextExportWindow : public kavo::test::ReportWindowTest
{
protected:
    static QLineEdit& path(const Form9& window) { return control<QLineEdit>(window, "Text1"); }
    static QPushButton& browse(const Form9& window) { return control<QPushButton>(window, "Command1"); }
    static QPushButton& exporting(const Form9& window) { return control<QPushButton>(window, "Command2"); }
    static QPushButton& closing(const Form9& window) { return control<QPushButton>(window, "Command3"); }

    [[nodiscard]] QString inFolder(const char* name) const { return QString::fromStdString((folder / name).string()); }

    /// The dialog opens on what was chosen before.
    void browseTo(const Form9& window, const QString& chosen)
    {
        prompts.expectFileToSave({"Form9", {.startAt = path(window).text()}}, chosen);
        click(browse(window));
    }

    void exportTo(const Form9& window, const QString& chosen, Answer answer)
    {
        browseTo(window, chosen);
        prompts.expectYesNo(kOffer, answer);
        click(exporting(window));
    }

    [[nodiscard]] std::string expectedReport() const
    {
        kavo::test::RecordedReport report;
        kavo::writeTextReport(session, report);
        return report.bytes;
    }

    /// What an error that leaves a handler is shown as.
    void expectError(const char* text) { prompts.expectMessage({.text = text, .icon = kavo::MessageIcon::Critical}); }
};

TEST_F(TextExportWindow, HasItsCaptions)
{
    Form9 window(services, nullptr);
    EXPECT_EQ(window.objectName(), "Form9");
    EXPECT_EQ(window.windowTitle(), "TextFile Export");
    EXPECT_EQ(control<QGroupBox>(window, "Frame1").title(), "Path to text file");
    EXPECT_EQ(control<QLabel>(window, "Label1").text(),
              "Strongly recommended 2 read results file with monospaced font, like Courier (Courier New) and in "
              "full-screen mode!");
    EXPECT_EQ(browse(window).text(), "Browse");
    EXPECT_EQ(exporting(window).text(), "&Export");
    EXPECT_EQ(closing(window).text(), "Close");
    EXPECT_EQ(path(window).text(), "");
    EXPECT_FALSE(exporting(window).isEnabled());
    expectPainted(window, control<QLabel>(window, "Label1"));
}

TEST_F(TextExportWindow, BrowseEnablesTheExportAndAnEmptyNameDisablesItAgain)
{
    Form9 window(services, nullptr);
    showAndWait(window);
    QTest::keyClicks(&path(window), "typed.txt");
    EXPECT_FALSE(exporting(window).isEnabled());
    EXPECT_EQ(exporting(window).toolTip(), "Choose a file with Browse first");
    browseTo(window, " report.txt ");
    EXPECT_EQ(path(window).text(), " report.txt ");
    EXPECT_TRUE(exporting(window).isEnabled());
    EXPECT_EQ(exporting(window).toolTip(), "");
    browseTo(window, "");
    EXPECT_FALSE(exporting(window).isEnabled());
    EXPECT_EQ(exporting(window).toolTip(), "Choose a file with Browse first");
    EXPECT_EQ(path(window).text(), " report.txt ");
    browseTo(window, "   ");
    EXPECT_FALSE(exporting(window).isEnabled());
    EXPECT_EQ(path(window).text(), " report.txt ");
}

TEST_F(TextExportWindow, NoWritesTheReportAndNoLauncher)
{
    Form9 window(services, nullptr);
    showAndWait(window);
    exportTo(window, inFolder("report.txt"), Answer::No);
    EXPECT_EQ(folder.read("report.txt"), expectedReport());
    EXPECT_FALSE(folder.has("tmp.bat"));
    EXPECT_TRUE(desktop.opened.isEmpty());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(TextExportWindow, YesWritesTheLauncherAndOpensTheReport)
{
    Form9 window(services, nullptr);
    showAndWait(window);
    QElapsedTimer timer;
    timer.start();
    exportTo(window, inFolder("report.txt"), Answer::Yes);
    EXPECT_LT(timer.elapsed(), 10000);
    EXPECT_EQ(folder.read("tmp.bat"), "@echo off\r\n\"" + (folder / "report.txt").string() + "\"\r\nexit\r\n");
#ifndef Q_OS_WIN
    EXPECT_EQ(desktop.opened, QStringList{inFolder("report.txt")});
    EXPECT_TRUE(desktop.started.isEmpty());
#endif
    click(closing(window));
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(folder.has("tmp.bat"));
    EXPECT_TRUE(folder.has("report.txt"));
}

TEST_F(TextExportWindow, EscapeDeletesTheLauncherTheTitleBarLeavesIt)
{
    Form9 window(services, nullptr);
    showAndWait(window);
    exportTo(window, inFolder("report.txt"), Answer::Yes);
    window.close();
    EXPECT_TRUE(folder.has("tmp.bat"));
    showAndWait(window);
    expectEscapeCloses(window, path(window));
    EXPECT_FALSE(folder.has("tmp.bat"));
}

TEST_F(TextExportWindow, LauncherThatCannotBeDeletedIsIgnored)
{
    folder.write("tmp.bat/inside", "a folder in the launcher's place");
    Form9 window(services, nullptr);
    showAndWait(window);
    click(closing(window));
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(folder.has("tmp.bat/inside"));
}

TEST_F(TextExportWindow, TypedPathIsUsedAndCountsFromTheProgramFolder)
{
    Form9 window(services, nullptr);
    showAndWait(window);
    browseTo(window, inFolder("chosen.txt"));
    path(window).selectAll();
    QTest::keyClicks(&path(window), "mine.txt");
    prompts.expectYesNo(kOffer, Answer::Yes);
    click(exporting(window));
    EXPECT_EQ(folder.read("mine.txt"), expectedReport());
    EXPECT_FALSE(folder.has("chosen.txt"));
    // The launcher has the path as it stands in the box.
    EXPECT_EQ(folder.read("tmp.bat"), "@echo off\r\n\"mine.txt\"\r\nexit\r\n");
#ifndef Q_OS_WIN
    EXPECT_EQ(desktop.opened, QStringList{inFolder("mine.txt")});
#endif
}

#ifndef Q_OS_WIN
TEST_F(TextExportWindow, NothingOfAPathIsRun)
{
    const char* name = "a \"b\" $(touch x) `touch y`;\ntouch z.txt";
    Form9 window(services, nullptr);
    showAndWait(window);
    exportTo(window, inFolder(name), Answer::Yes);
    EXPECT_EQ(folder.read(name), expectedReport());
    EXPECT_EQ(desktop.opened, QStringList{inFolder(name)});
    EXPECT_TRUE(desktop.started.isEmpty());
    for (const char* made : {"x", "y", "z.txt"}) EXPECT_FALSE(folder.has(made));
}
#endif

TEST_F(TextExportWindow, PathThatCannotBeWrittenIsReportedAndNothingIsOffered)
{
    Form9 window(services, nullptr);
    showAndWait(window);
    browseTo(window, inFolder("none/report.txt"));
    expectError("Path not found: report.txt");
    click(exporting(window));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(TextExportWindow, LongLevelNameIsReportedAndTheReportStaysAsFarAsItCame)
{
    session.table.setText(2, kavo::Column::Level, "abcdefghijklmnopqrstuvwx");
    folder.write("report.txt", "old");
    Form9 window(services, nullptr);
    showAndWait(window);
    browseTo(window, inFolder("report.txt"));
    expectError("Invalid procedure call or argument");
    click(exporting(window));
    const std::string report = folder.read("report.txt");
    EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 4);
    EXPECT_NE(report.find("1, Track"), std::string::npos);
    EXPECT_FALSE(folder.has("tmp.bat"));
}

}  // namespace
