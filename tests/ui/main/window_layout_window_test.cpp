// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/atomic_file.h"
#include "tests/support/window_fixture.h"

#include <QHeaderView>
#include <QScreen>

namespace {

class WindowLayout : public kavo::test::ProgramTest
{
protected:
    static constexpr const char* kFile = "Marek/view.dat";
    // Left, top, height, width (twips, 15 to a pixel), then six column widths.
    static constexpr const char* kStored =
        " 300 \r\n 3000 \r\n 4500 \r\n 9000 \r\n 1500 \r\n 900 \r\n 915 \r\n 930 \r\n 945 \r\n 960 \r\n";

    void forget() { std::filesystem::remove(folder / kFile); }

    /// Lines 1, 2, 3, ... of the file.
    [[nodiscard]] QStringList lines() { return QString::fromStdString(folder.read(kFile)).split("\r\n"); }

    /// Height that every start ends with: the screen's, less 550 twips.
    [[nodiscard]] static int finalHeight()
    {
        return qRound((QGuiApplication::primaryScreen()->geometry().height() * 15 - 550) / 15.0);
    }

    void refresh() { QTest::keyClick(&list(), Qt::Key_F5); }
};

TEST_F(WindowLayout, TakesLeftWidthAndColumnsFromTheFileButNotTopAndHeight)
{
    folder.write(kFile, kStored);
    startLoggedIn();
    EXPECT_EQ(mainWindow().pos(), QPoint(20, 1));
    EXPECT_EQ(mainWindow().width(), 600);
    EXPECT_EQ(mainWindow().height(), finalHeight());
    const int widths[] = {100, 60, 61, 62, 63, 64};
    for (int column = 0; column < 6; ++column) EXPECT_EQ(list().columnWidth(column), widths[column]);
}

TEST_F(WindowLayout, IsWrittenHeightBeforeWidth)
{
    folder.write(kFile, kStored);
    startLoggedIn();
    QTest::mouseRelease(&mainWindow(), Qt::LeftButton);
    EXPECT_EQ(folder.read(kFile), " 300 \r\n 15 \r\n " + std::to_string(finalHeight() * 15) +
                                      " \r\n 9000 \r\n 1500 \r\n 900 \r\n 915 \r\n 930 \r\n 945 \r\n 960 \r\n");
}

TEST_F(WindowLayout, UserWithoutAFileGetsTheDesignedWidthAndTheUsualTopAndHeight)
{
    startLoggedIn();
    EXPECT_EQ(mainWindow().pos().y(), 1);
    EXPECT_EQ(mainWindow().height(), finalHeight());
    EXPECT_GT(mainWindow().width(), 400);
}

TEST_F(WindowLayout, DesignedWindowFitsTheScreenWithItsFrame)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n 1 \r\n\r\n\r\n 40 \r\n");  // wider than any screen
    startLoggedIn();
    EXPECT_LT(list().viewport()->width(), list().header()->length());
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    // The window manager tells of the frame when the window has one.
    EXPECT_TRUE(QTest::qWaitFor([this] { return mainWindow().frameGeometry().width() > mainWindow().width(); },
                                kavo::test::kPatience));
    const QRect frame = mainWindow().frameGeometry();
    EXPECT_TRUE(frame.left() >= area.left() && frame.right() <= area.right())
        << frame.left() << " to " << frame.right() << " on " << area.left() << " to " << area.right();
}

TEST_F(WindowLayout, TableFillsTheWindow)
{
    startLoggedIn();
    mainWindow().resize(500, 400);
    EXPECT_EQ(list().geometry(), QRect(0, 0, 500, 400));
}

TEST_F(WindowLayout, IsWrittenAtItsMoments)
{
    startLoggedIn();
    forget();
    QTest::mouseClick(list().viewport(), Qt::LeftButton);
    EXPECT_FALSE(folder.has(kFile));
    QTest::mousePress(&mainWindow(), Qt::LeftButton);
    EXPECT_FALSE(folder.has(kFile));
    QTest::mouseRelease(&mainWindow(), Qt::LeftButton);
    EXPECT_TRUE(folder.has(kFile));
    forget();
    mainWindow().resize(500, 400);
    EXPECT_EQ(lines().mid(2, 2), QStringList({" 6000 ", " 7500 "}));
    forget();
    refresh();
    EXPECT_TRUE(folder.has(kFile));
    forget();
    QTimer::singleShot(0, &mainWindow(), &QWidget::close);  // ends the program, so its event loop must run
    qApp->exec();
    EXPECT_TRUE(folder.has(kFile));
}

TEST_F(WindowLayout, ColumnWidthsAreWrittenWithTheNextMoment)
{
    startLoggedIn();
    list().setColumnWidth(5, 77);
    list().setColumnWidth(6, 78);  // not stored
    refresh();
    EXPECT_EQ(lines().at(9), " 1155 ");
    EXPECT_EQ(lines().size(), 11);  // ten lines and what follows the last line end
}

TEST_F(WindowLayout, TenReloadsMoveNothing)
{
    for (const bool hasFrame : {true, false}) {
        folder.write(kFile, kStored);
        startLoggedIn();
        if (!hasFrame) {
            mainWindow().setWindowFlag(Qt::FramelessWindowHint);
            mainWindow().show();
        }
        refresh();
        const std::string before = folder.read(kFile);
        const QRect place(mainWindow().pos(), mainWindow().size());
        for (int time = 0; time < 10; ++time) {
            refresh();
            QApplication::processEvents();
        }
        EXPECT_EQ(folder.read(kFile), before) << hasFrame;
        EXPECT_EQ(QRect(mainWindow().pos(), mainWindow().size()), place) << hasFrame;
        EXPECT_EQ(lines().at(0), " 300 ") << hasFrame;
        EXPECT_EQ(lines().at(3), " 9000 ") << hasFrame;
        program.reset();
    }
}

TEST_F(WindowLayout, MaximizedWindowStaysSoAndKeepsItsOrdinaryPlace)
{
    folder.write(kFile, kStored);
    startLoggedIn();
    mainWindow().showMaximized();
    refresh();
    EXPECT_TRUE(mainWindow().isMaximized());
    EXPECT_EQ(lines().at(0), " 300 ");
    EXPECT_EQ(lines().at(3), " 9000 ");
}

TEST_F(WindowLayout, PlaceOnAScreenThatHasGoneIsBroughtBack)
{
    for (const char* left : {" 900000 ", "-900000", "1e300"}) {
        folder.write(kFile, std::string(left) + "\r\n 150 \r\n 4500 \r\n 9000 \r\n");
        startLoggedIn();
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        EXPECT_GE(screen.intersected(mainWindow().geometry()).width(), 100) << left;
        program.reset();
    }
}

TEST_F(WindowLayout, ShortOrBrokenFileAppliesAsFarAsItGoes)
{
    std::vector<QRect> places;
    for (const char* text : {"450\r\n 0\r\n", "450\r\n 0\r\nhigh\r\n 1500 \r\n"}) {
        folder.write(kFile, text);
        startLoggedIn();
        places.emplace_back(mainWindow().pos(), mainWindow().size());
        EXPECT_EQ(list().model()->rowCount(), 55);
        program.reset();
    }
    EXPECT_EQ(places.front().topLeft(), QPoint(30, 1));
    EXPECT_EQ(places.back(), places.front()) << "the 1500 behind the word is no width";
}

TEST_F(WindowLayout, FailedWriteIsToldOnce)
{
    startLoggedIn();
    forget();
    folder.write("Marek/view.dat/in the way", "");
    expectError("Path/File access error: view.dat");
    for (int width = 500; width < 520; ++width) mainWindow().resize(width, 400);
    EXPECT_TRUE(prompts.isDone());
    EXPECT_TRUE(folder.has("Marek/view.dat/in the way"));
}

TEST_F(WindowLayout, StepsOfAResizeLeaveNothingBehind)
{
    startLoggedIn();
    for (int width = 500; width < 520; ++width) {
        mainWindow().resize(width, 400);
        EXPECT_EQ(lines().at(3), QString(" %1 ").arg(width * 15));
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder / "Marek"))
        EXPECT_FALSE(kavo::isTemporaryName(entry.path())) << entry.path();
}

TEST_F(WindowLayout, FileThatHasGoneMeanwhileComesBackAtTheClosing)
{
    startLoggedIn();
    mainWindow().resize(500, 400);
    forget();
    QTimer::singleShot(0, &mainWindow(), &QWidget::close);
    qApp->exec();
    EXPECT_EQ(lines().mid(2, 2), QStringList({" 6000 ", " 7500 "}));
}

TEST_F(WindowLayout, ErrorsOfAnyKindAreToldOnce)
{
    startLoggedIn();
    std::filesystem::remove_all(folder / "Marek");
    folder.write("Marek", "a file");
    for (int width = 500; width < 520; ++width) mainWindow().resize(width, 400);  // nothing to write into
    std::filesystem::remove(folder / "Marek");
    std::filesystem::create_directory(folder / "Marek");
    std::filesystem::create_symlink("view.dat", folder / kFile);  // a loop
    expectError("Path/File access error: view.dat");
    for (int width = 520; width < 540; ++width) mainWindow().resize(width, 400);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / kFile));
}

}  // namespace
