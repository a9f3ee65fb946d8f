// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/trouble.h"
#include "tests/support/window_fixture.h"

#include <QComboBox>
#include <QHeaderView>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include <new>
#include <stdexcept>

namespace {

using kavo::Message;
using kavo::MessageIcon;
using kavo::test::statisticsText;
using kavo::test::targetsText;

class ProgramWindows : public kavo::test::ProgramTest
{
};

TEST_F(ProgramWindows, MainWindowShowsTheGradedTable)
{
    startLoggedIn();
    const auto* model = list().model();
    EXPECT_EQ(model->rowCount(), 55);
    EXPECT_EQ(model->columnCount(), 9);
    EXPECT_EQ(header(0), "Level");
    EXPECT_EQ(header(1), "Marek");
    EXPECT_EQ(header(6), "Dust Devils");
    EXPECT_EQ(cell(1, 0), "1, Warm Up");
    EXPECT_EQ(cell(55, 0), "TOTAL TIME:");
    EXPECT_EQ(cell(7, 1), "00:19:05");  // the bug-time
    EXPECT_EQ(cell(7, 2), "World Record");
    EXPECT_EQ(model->index(6, 2).data(Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));
    EXPECT_EQ(model->index(16, 2).data(Qt::ForegroundRole).value<QColor>(), QColor(0, 0, 0));
    EXPECT_TRUE(model->index(54, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(model->index(0, 0).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(list().currentIndex().row(), 54);
}

TEST_F(ProgramWindows, DesignedColoursAreTheDefaultSchemeOnDarkDesktopsToo)
{
    const QPalette desktop = QApplication::palette();
    QPalette dark(Qt::black);
    QApplication::setPalette(dark);
    startLoggedIn();
    EXPECT_EQ(list().palette().color(QPalette::Base), QColor(255, 255, 255));
    EXPECT_EQ(list().palette().color(QPalette::Text), QColor(0, 0, 0));
    EXPECT_EQ(mainWindow().palette().color(QPalette::Window), QColor(255, 255, 255));
    QApplication::setPalette(desktop);
}

TEST_F(ProgramWindows, MissingTargetsAreToldOncePerLoading)
{
    std::filesystem::remove(folder / "targets.txt");
    const Message message{.text = std::string(kavo::messages::kMissingTargets), .icon = MessageIcon::Critical};
    prompts.expectMessage(message);
    startLoggedIn();
    EXPECT_EQ(cell(1, 2), "Beginner");
    prompts.expectMessage(message, [this] {
        // The boxes that a loading shows lie over nothing of its own.
        for (const QWidget* window : QApplication::topLevelWidgets())
            EXPECT_FALSE(window->objectName() == "frmSplash" && window->isVisible());
        EXPECT_EQ(list().model()->rowCount(), 0);
    });
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(list().model()->rowCount(), 55);
}

TEST_F(ProgramWindows, RefreshReadsEverythingAnewInTheSameWindow)
{
    startLoggedIn();
    const QWidget* window = &mainWindow();
    folder.write("game/stats.txt", statisticsText({"00:09:99 Marek"}));
    folder.write("targets.txt", targetsText());
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(window, &mainWindow());
    EXPECT_EQ(cell(1, 1), "00:09:99");
    EXPECT_EQ(cell(1, 2), "World Record");
    EXPECT_EQ(cell(2, 1), "00:30:00");
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(ProgramWindows, RefreshShowsAnewOnlyWhatIsOtherThanBefore)
{
    startLoggedIn();
    const QSignalSpy resets(list().model(), &QAbstractItemModel::modelReset);
    const QSignalSpy cells(list().model(), &QAbstractItemModel::dataChanged);
    const QSignalSpy headers(list().model(), &QAbstractItemModel::headerDataChanged);
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_TRUE(cells.isEmpty());
    EXPECT_TRUE(headers.isEmpty());
    folder.write("Marek/names.dat", "Ann\r\nBob\r\nBoth\r\n");
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_TRUE(resets.isEmpty());
    // Every level has another author; the totals row has the word "Team" as before.
    ASSERT_EQ(cells.size(), 54);
    for (int level = 1; level <= 54; ++level) {
        EXPECT_EQ(cells.at(level - 1).at(0).toModelIndex(), index(level, 8));
        EXPECT_EQ(cells.at(level - 1).at(1).toModelIndex(), index(level, 8));
    }
    EXPECT_EQ(headers.size(), 3);
    EXPECT_EQ(header(1), "Ann");
}

TEST_F(ProgramWindows, RefreshChoosesTheTotalsRowOrNone)
{
    startLoggedIn();
    list().setCurrentIndex(index(7, 0));
    ASSERT_TRUE(list().selectionModel()->isRowSelected(6));
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(list().currentIndex(), index(55, 0));
    EXPECT_EQ(list().selectionModel()->selectedRows(), QModelIndexList{index(55, 0)});
    list().setCurrentIndex(index(7, 0));
    const std::string text = statisticsText();
    folder.write("game/stats.txt", text.substr(0, text.find("Level 3,")));
    prompts.expectMessage({.text = "Invalid procedure call or argument: stats.txt", .icon = MessageIcon::Critical});
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_FALSE(list().selectionModel()->hasSelection());
}

TEST_F(ProgramWindows, ErrorOfTheLoadingIsShownAndLeavesWhatWasFilled)
{
    std::string text = statisticsText();
    text = text.substr(0, text.find("Level 3,"));
    folder.write("game/stats.txt", text);
    folder.write("Marek/bugs.dat", "Player1\r\nPlayer2\r\n");
    prompts.expectMessage({.text = "Invalid procedure call or argument: stats.txt", .icon = MessageIcon::Critical});
    startLoggedIn();
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_EQ(header(1), "Time 1");
    EXPECT_EQ(header(3), "Time 2");
    EXPECT_EQ(header(6), "Team");
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(ProgramWindows, UnreadableNumbersInSettingsDoNotStopTheStart)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\nabc\r\nfriend/stats.txt\r\n\r\n-4\r\n");
    folder.write("Marek/view.dat", " 30 \r\nx\r\n");
    startLoggedIn();
    EXPECT_EQ(list().model()->rowCount(), 55);
    EXPECT_EQ(list().font().pointSizeF(), 8);
    EXPECT_EQ(mainWindow().pos().x(), 2);
}

TEST_F(ProgramWindows, SecondProgramOnTheSameFolderEndsItself)
{
    startLoggedIn();
    kavo::test::ScriptedPrompts noPrompts;
    kavo::Program second(folder.path(), noPrompts);
    QTimer::singleShot(0, &second, &kavo::Program::start);
    testing::internal::CaptureStderr();
    const int status = runUntilQuit();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "kavo-timing: already running on " + folder.path().string() + "\n");
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(second.mainWindow().isVisible());
    EXPECT_TRUE(folder.has("kavo-timing.lock"));
}

TEST_F(ProgramWindows, LockOfACrashedProgramDoesNotKeepTheNextOneOut)
{
    QProcess finished;
    finished.start("true", {});
    const qint64 deadProcess = finished.processId();
    finished.waitForFinished();
    folder.write("kavo-timing.lock",
                 std::to_string(deadProcess) + "\nkavo-timing\n" + QSysInfo::machineHostName().toStdString() + "\n");
    startLoggedIn();
    EXPECT_TRUE(mainWindow().isVisible());
}

#ifndef Q_OS_WIN
TEST_F(ProgramWindows, NobodyIsLockedOutByWhatStandsInTheLocksPlace)
{
    const std::string lock = (folder / "kavo-timing.lock").string();
    const std::vector<std::function<void()>> obstacles = {
        [this] { folder.write("kavo-timing.lock", ""); },
        [this] { folder.write("kavo-timing.lock", "garbage\n"); },
        [this] { folder.write("kavo-timing.lock", "1\nkavo-timing\nanother-machine\n"); },
        [&lock] { std::filesystem::create_directory(lock); },
        [&lock] { kavo::test::makePipe(lock); },
        [&lock] { std::filesystem::create_symlink("/dev/zero", lock); },
        [&lock] { std::filesystem::create_symlink("none/here", lock); },
    };
    for (const auto& makeObstacle : obstacles) {
        makeObstacle();
        startLoggedIn();
        EXPECT_TRUE(mainWindow().isVisible());
        program.reset();
        std::filesystem::remove_all(lock);
    }
}
#endif

TEST_F(ProgramWindows, AnyErrorOfALoadingIsToldAndTheNextLoadingRuns)
{
    const std::string targets = folder.read("targets.txt");
    std::filesystem::remove(folder / "targets.txt");
    prompts.expectMessage({.text = std::string(kavo::messages::kMissingTargets), .icon = MessageIcon::Critical},
                          [] { throw std::bad_alloc(); });
    expectError("Out of memory: stats.txt");
    startLoggedIn();
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(list().model()->rowCount(), 0);
    folder.write("targets.txt", targets);
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(list().model()->rowCount(), 55);
    EXPECT_EQ(cell(55, 0), "TOTAL TIME:");
}

TEST_F(ProgramWindows, SplashDoesNotStayAloneAfterAnError)
{
    // Whatever fails behind the loading itself: here the box that tells of its error.
    folder.write("targets.txt", "00:10:00\r\n");
    const Message message{.text = "Input past end of file: targets.txt", .icon = MessageIcon::Critical};
    prompts.expectMessage(message, [] { throw std::runtime_error("no box"); });
    expectError("no box");
    startLoggedIn();
    EXPECT_TRUE(mainWindow().isVisible());
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->objectName() == "frmSplash" && window->isVisible());
}

TEST_F(ProgramWindows, NamesWithoutAUserAreWrittenNowhere)
{
    std::filesystem::current_path(folder.path());
    folder.write("curUser.dat", "\r\n");
    start();
    control<QComboBox>(loginWindow(), "Combo1").setEditText("..");
    expectError("Path not found: ..");
    click(control<QPushButton>(loginWindow(), "cmdOK"));
    expectError("Path not found: names.dat");
    emit list().header()->sectionClicked(0);
    EXPECT_FALSE(folder.has("names.dat"));
    EXPECT_FALSE(folder.has("view.dat"));
    EXPECT_FALSE(folder.has("colors"));
    std::filesystem::current_path("/");
}

TEST_F(ProgramWindows, TwoFoldersCanBeOpenAtOnce)
{
    startLoggedIn();
    kavo::test::TemporaryFolder other;
    kavo::test::copyDemo(other);
    other.write("autolog.dat", " 1 \r\n");
    kavo::Program second(other.path(), prompts);
    second.start();
    EXPECT_TRUE(second.mainWindow().isVisible());
}

TEST_F(ProgramWindows, ClosingTheMainWindowEndsTheProgram)
{
    startLoggedIn();
    QTimer::singleShot(0, &mainWindow(), &QWidget::close);
    EXPECT_EQ(runUntilQuit(), 0);
}

TEST_F(ProgramWindows, SplashIsGoneWhenTheMainWindowIsThere)
{
    startLoggedIn();
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->objectName() == "frmSplash" && window->isVisible());
}

TEST_F(ProgramWindows, StrayErrorIsReportedAndTheProgramGoesOn)
{
    startLoggedIn();
    // A folder stands where the auto-login file is rewritten.
    std::filesystem::remove(folder / "autolog.dat");
    std::filesystem::create_directories(folder / "autolog.dat");
    prompts.expectMessage({.text = "Path/File access error: autolog.dat", .icon = MessageIcon::Critical});
    QTest::keyClick(&list(), Qt::Key_F12);
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_FALSE(loginWindow().isVisible());
}

TEST_F(ProgramWindows, LatinOneNameIsReadableAndSurvivesRenaming)
{
    folder.write("Marek/names.dat", "Jos\xE9\r\nPlayer2\r\nTeam\r\n");
    startLoggedIn();
    EXPECT_EQ(header(1), QString::fromUtf8("José"));
    prompts.expectLine({"Change team name", "Input team name:", "Team"}, QString("Дуэт"));
    emit list().header()->sectionClicked(6);
    EXPECT_EQ(folder.read("Marek/names.dat"), "Jos\xE9\r\nЖанна\r\nДуэт\r\n");
    EXPECT_EQ(header(6), QString::fromUtf8("Дуэт"));
}

}  // namespace
