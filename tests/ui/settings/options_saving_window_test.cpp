// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/settings/options_window_fixture.h"

#include <QTreeView>

namespace {

using OptionsSaving = kavo::test::OptionsWindowTest;
using kavo::test::statisticsText;

TEST_F(OptionsSaving, SaveWritesFiveLinesAndReloadsWithThem)
{
    look([](const QWidget& window) {
        click(option(window, "Option3"));
        category(window).setFocus();
        category(window).lineEdit()->selectAll();
        QTest::keyClicks(category(window).lineEdit(), "Good");
        press(window, "Command3");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 3 \r\nfriend/stats.txt\r\nGood\r\n 9 \r\n");
    EXPECT_EQ(folder.read("Marek/1res.old"), folder.read("game/stats.txt"));
    EXPECT_EQ(cell(1, 3), "00:40:00");
    EXPECT_EQ(list().model()->rowCount(), 55);
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(OptionsSaving, SaveKeepsThePreviousResultsThatAreThere)
{
    folder.write("Marek/1RES.OLD", "of long ago");
    look([](const QWidget& window) { QTest::keyClick(&line(window, "Text1"), Qt::Key_Return); });
    EXPECT_EQ(folder.read("Marek/1RES.OLD"), "of long ago");
    EXPECT_FALSE(folder.has("Marek/1res.old"));
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\nGood\r\n 9 \r\n");
}

TEST_F(OptionsSaving, BytesOfOtherCodePagesAreWrittenBackUnchanged)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n1\r\ncaf\xE9.txt\r\n\xFFzz\r\n8\r\n");
    folder.write("Marek/1res.old", statisticsText());
    look([](const QWidget& window) {
        EXPECT_EQ(line(window, "Text2").text(), QString::fromUtf8("café.txt"));
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 1 \r\ncaf\xE9.txt\r\n\xFFzz\r\n 8 \r\n");
}

TEST_F(OptionsSaving, MissingStatisticsFileIsToldAfterTheSettingsAreWritten)
{
    look([this](const QWidget& window) {
        type(line(window, "Text1"), "nowhere.txt");
        expectError("File not found: nowhere.txt");
        press(window, "Command3");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(line(window, "Text1").selectedText(), "nowhere.txt");
        EXPECT_EQ(folder.read("Marek/data.ini"), "nowhere.txt\r\n 2 \r\nfriend/stats.txt\r\nGood\r\n 9 \r\n");
        EXPECT_FALSE(folder.has("Marek/1res.old"));
        EXPECT_EQ(list().model()->rowCount(), 55);  // not reloaded
    });
}

TEST_F(OptionsSaving, MissingStatisticsFileIsNoMatterWithPreviousResults)
{
    folder.write("Marek/1res.old", statisticsText());
    look([](const QWidget& window) {
        type(line(window, "Text1"), "nowhere.txt");
        press(window, "Command3");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(list().model()->rowCount(), 0);
}

TEST_F(OptionsSaving, FailedWriteIsToldOnceAndLosesNothing)
{
    std::filesystem::remove(folder / "Marek/data.ini");
    folder.write("Marek/data.ini/in the way", "");
    lookAtStart([this](const QWidget& window) {
        expectError("Path/File access error: data.ini");
        press(window, "Command3");
        EXPECT_TRUE(window.isVisible());
    });
    EXPECT_TRUE(folder.has("Marek/data.ini/in the way"));
    EXPECT_FALSE(folder.has("Marek/1res.old"));
}

/// Pixels that a line keeps free around its text.
constexpr int kCursorRoom = 6;

TEST_F(OptionsSaving, GradeIsAskedForUntilOneIsChosen)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n 3 \r\n\r\n\r\n");
    look([](const QWidget& window) {
        EXPECT_EQ(category(window).currentText(), "");
        const QLineEdit& grade = *category(window).lineEdit();
        EXPECT_EQ(grade.placeholderText(), "choose a grade");
        EXPECT_GE(grade.width(), grade.fontMetrics().horizontalAdvance(grade.placeholderText()) + kCursorRoom);
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 3 \r\n\r\n\r\n 8 \r\n");
}

TEST_F(OptionsSaving, SaveKeepsTheFontSizeThatAFailedLoadingHasNotRead)
{
    folder.enlarge("Marek/view.dat");
    folder.write("Marek/data.ini", "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\n\r\n 13.5 \r\n");
    expectError("File too large: view.dat");
    look([this](const QWidget& window) {
        std::filesystem::remove(folder / "Marek/view.dat");
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\n\r\n 13.5 \r\n");
    EXPECT_DOUBLE_EQ(list().font().pointSizeF(), 13.5);
}

TEST_F(OptionsSaving, SettingsThatCouldNotBeReadAreShownBeforeTheyAreOverwritten)
{
    const std::string settings = "game/stats.txt\r\n 3 \r\nfriend/stats.txt\r\nGood\r\n 13.5 \r\n";
    folder.enlarge("Marek/data.ini");
    expectError("File too large: data.ini");  // the loading's
    look([&](const QWidget& window) {
        EXPECT_EQ(line(window, "Text1").text(), "\\stats.txt");
        folder.write("Marek/data.ini", settings);
        expectError("File too large: data.ini");
        press(window, "Command3");
        EXPECT_EQ(folder.read("Marek/data.ini"), settings);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(line(window, "Text1").text(), "game/stats.txt");
        EXPECT_EQ(category(window).currentText(), "Good");
        press(window, "Command3");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), settings);
}

TEST_F(OptionsSaving, SettingsThatCannotBeReadAreWrittenAnew)
{
    folder.enlarge("Marek/data.ini");
    expectError("File too large: data.ini");  // the loading's
    look([](const QWidget& window) {
        type(line(window, "Text1"), "game/stats.txt");
        press(window, "Command3");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 1 \r\n\\stats.txt\r\n\r\n 8 \r\n");
}

TEST_F(OptionsSaving, PathTooLongForItsBoxIsWrittenBackWhole)
{
    const std::string path(50'000, 'p');
    folder.write("Marek/data.ini", path + "\r\n 1 \r\n" + path + "\r\n\r\n 8 \r\n");
    folder.write("Marek/1res.old", statisticsText());
    look([](const QWidget& window) {
        EXPECT_EQ(line(window, "Text1").text().size(), 4097);  // and an ellipsis
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), path + "\r\n 1 \r\n" + path + "\r\n\r\n 8 \r\n");
}

}  // namespace
