// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/screen_text.h"
#include "tests/support/patience.h"
#include "tests/support/window_fixture.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

namespace {

using kavo::Message;
using kavo::test::kPatience;
using kavo::test::statisticsText;
using kavo::test::targetsText;
using kavo::test::withWindow;

class OptionsWindow : public kavo::test::ProgramTest
{
protected:
    OptionsWindow()
    {
        folder.write("targets.txt", targetsText());
        folder.write("game/stats.txt", statisticsText({"00:10:00 Alice"}));
        folder.write("friend/stats.txt", statisticsText({"00:09:00 Bob"}));
        std::filesystem::remove(folder / "Marek/bugs.dat");
    }

    void look(const std::function<void(QWidget&)>& script)
    {
        if (!program) startLoggedIn();
        withKey("Form2", Qt::Key_F2, script);
    }

    /// The window that a loading opens by itself.
    void lookAtStart(const std::function<void(QWidget&)>& script)
    {
        EXPECT_TRUE(withWindow(
            "Form2", [this] { startLoggedIn(); }, script))
            << "Options did not open";
    }

    static QLineEdit& line(const QWidget& window, const char* name) { return control<QLineEdit>(window, name); }
    static QRadioButton& option(const QWidget& window, const char* name) { return control<QRadioButton>(window, name); }
    static QComboBox& category(const QWidget& window) { return control<QComboBox>(window, "Combo1"); }
    static void press(const QWidget& window, const char* name) { click(control<QPushButton>(window, name)); }

    static void type(QLineEdit& box, const QString& text)
    {
        box.selectAll();
        QTest::keyClicks(&box, text);
    }

    void expectCleared()
    {
        prompts.expectMessage({.text = "Previous results have been cleared", .title = "Kavo Timing"});
    }
};

TEST_F(OptionsWindow, HasItsCaptionsAndTooltip)
{
    look([](const QWidget& window) {
        EXPECT_EQ(control<QGroupBox>(window, "Frame1").title(), "Path to stats.txt");
        EXPECT_EQ(control<QGroupBox>(window, "Frame2").title(), "Compare method");
        EXPECT_EQ(option(window, "Option1").text(), "Compare with previous results");
        EXPECT_EQ(option(window, "Option2").text(), "Compare with another stats.txt");
        EXPECT_EQ(option(window, "Option3").text(), "Compare with targets");
        EXPECT_EQ(control<QPushButton>(window, "Command1").text(), "...");
        EXPECT_EQ(control<QPushButton>(window, "Command2").text(), "...");
        EXPECT_EQ(control<QPushButton>(window, "Command3").text(), "&Save ");
        EXPECT_EQ(control<QPushButton>(window, "Command4").text(), "Cancel");
        EXPECT_EQ(control<QPushButton>(window, "Command5").text(), "Clear");
        EXPECT_EQ(control<QPushButton>(window, "Command5").toolTip(), QString::fromUtf8("Обновляет певые результаты"));
        QStringList grades;
        for (int i = 0; i < category(window).count(); ++i) grades << category(window).itemText(i);
        EXPECT_EQ(grades, QStringList({"World Record", "World Class", "Professional", "Good", "OK"}));
    });
}

TEST_F(OptionsWindow, OpensByItselfOnTheFirstRunWithTheDesignedValues)
{
    std::filesystem::remove(folder / "Marek/data.ini");
    lookAtStart([this](const QWidget& window) {
        EXPECT_EQ(list().model()->rowCount(), 0);
        EXPECT_EQ(line(window, "Text1").text(), "\\stats.txt");
        EXPECT_EQ(line(window, "Text2").text(), "\\stats.txt");
        EXPECT_TRUE(option(window, "Option1").isChecked());
        EXPECT_EQ(category(window).currentText(), "");
        EXPECT_FALSE(line(window, "Text2").isEnabled());
        EXPECT_FALSE(control<QPushButton>(window, "Command2").isEnabled());
        EXPECT_FALSE(category(window).isEnabled());
    });
    EXPECT_FALSE(folder.has("Marek/data.ini"));
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(header(1), "Marek");  // the loading went on
}

TEST_F(OptionsWindow, ShowsEachMethodWithItsControlsOnly)
{
    struct Case
    {
        const char* method;
        const char* option;
        bool isPathEnabled;
        bool isCategoryEnabled;
    };
    constexpr Case kCases[] = {{"1", "Option1", false, false},
                               {" 2 ", "Option2", true, false},
                               {"3", "Option3", false, true},
                               {"7", "Option1", false, false},
                               {"x", "Option1", false, false}};
    for (const Case& row : kCases) {
        folder.write("Marek/data.ini",
                     std::string("game/stats.txt\r\n") + row.method + "\r\nfriend/stats.txt\r\nWorld Class\r\n");
        look([&row](const QWidget& window) {
            EXPECT_TRUE(option(window, row.option).isChecked()) << row.method;
            EXPECT_EQ(line(window, "Text2").isEnabled(), row.isPathEnabled) << row.method;
            EXPECT_EQ(control<QPushButton>(window, "Command2").isEnabled(), row.isPathEnabled) << row.method;
            EXPECT_EQ(category(window).isEnabled(), row.isCategoryEnabled) << row.method;
            EXPECT_EQ(line(window, "Text1").text(), "game/stats.txt");
            EXPECT_EQ(line(window, "Text2").text(), "friend/stats.txt");
            EXPECT_EQ(category(window).currentText(), "World Class");
        });
    }
}

TEST_F(OptionsWindow, ChoosingAMethodMovesTheEnabledControls)
{
    look([](const QWidget& window) {
        QTest::keyClick(&option(window, "Option3"), Qt::Key_Space);
        EXPECT_FALSE(line(window, "Text2").isEnabled());
        EXPECT_TRUE(category(window).isEnabled());
        click(option(window, "Option1"));
        EXPECT_FALSE(category(window).isEnabled());
        click(option(window, "Option2"));
        EXPECT_TRUE(line(window, "Text2").isEnabled());
        EXPECT_TRUE(control<QPushButton>(window, "Command2").isEnabled());
    });
}

TEST_F(OptionsWindow, ShortFileIsShownAsFarAsItGoes)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n");
    expectError("Input past end of file: data.ini");  // the loading's, not this window's
    look([](const QWidget& window) {
        EXPECT_EQ(line(window, "Text1").text(), "game/stats.txt");
        EXPECT_TRUE(option(window, "Option1").isChecked());
        EXPECT_EQ(line(window, "Text2").text(), "\\stats.txt");
    });
}

TEST_F(OptionsWindow, OpensWhenNobodyIsLoggedIn)
{
    startLoggedIn();
    std::filesystem::remove(folder / "curUser.dat");
    look([](const QWidget& window) { EXPECT_EQ(line(window, "Text1").text(), "\\stats.txt"); });
}

TEST_F(OptionsWindow, SaveWritesFiveLinesAndReloadsWithThem)
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

TEST_F(OptionsWindow, SaveKeepsThePreviousResultsThatAreThere)
{
    folder.write("Marek/1RES.OLD", "of long ago");
    look([](const QWidget& window) { QTest::keyClick(&line(window, "Text1"), Qt::Key_Return); });
    EXPECT_EQ(folder.read("Marek/1RES.OLD"), "of long ago");
    EXPECT_FALSE(folder.has("Marek/1res.old"));
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\nGood\r\n 9 \r\n");
}

TEST_F(OptionsWindow, BytesOfOtherCodePagesAreWrittenBackUnchanged)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n1\r\ncaf\xE9.txt\r\n\xFFzz\r\n8\r\n");
    folder.write("Marek/1res.old", statisticsText());
    look([](const QWidget& window) {
        EXPECT_EQ(line(window, "Text2").text(), QString::fromUtf8("café.txt"));
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 1 \r\ncaf\xE9.txt\r\n\xFFzz\r\n 8 \r\n");
}

TEST_F(OptionsWindow, MissingStatisticsFileIsToldAfterTheSettingsAreWritten)
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

TEST_F(OptionsWindow, MissingStatisticsFileIsNoMatterWithPreviousResults)
{
    folder.write("Marek/1res.old", statisticsText());
    look([](const QWidget& window) {
        type(line(window, "Text1"), "nowhere.txt");
        press(window, "Command3");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(list().model()->rowCount(), 0);
}

TEST_F(OptionsWindow, FailedWriteIsToldOnceAndLosesNothing)
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

TEST_F(OptionsWindow, CancelWritesNothingAndShowsTheMainWindow)
{
    const std::string before = folder.read("Marek/data.ini");
    look([](const QWidget& window) {
        type(line(window, "Text1"), "other.txt");
        press(window, "Command4");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), before);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&mainWindow(), kPatience));
}

TEST_F(OptionsWindow, BrowseButtonsFillTheirBoxes)
{
    look([this](const QWidget& window) {
        const kavo::test::FileDialog first{"Form2", {.startAt = kavo::pathToScreen(folder / "game")}};
        const kavo::test::FileDialog home{"Form2", {.startAt = QDir::homePath()}};
        const kavo::test::FileDialog second{"Form2", {.startAt = kavo::pathToScreen(folder / "friend")}};
        prompts.expectFileToOpen(first, "/games/one/stats.txt");
        press(window, "Command1");
        EXPECT_EQ(line(window, "Text1").text(), "/games/one/stats.txt");
        prompts.expectFileToOpen(home, "");  // no such folder as the one just chosen
        press(window, "Command1");
        EXPECT_EQ(line(window, "Text1").text(), "/games/one/stats.txt");
        prompts.expectFileToOpen(second, "/games/two/stats.txt");
        press(window, "Command2");
        EXPECT_EQ(line(window, "Text2").text(), "/games/two/stats.txt");
    });
}

TEST_F(OptionsWindow, GradeIsAskedForUntilOneIsChosen)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n 3 \r\n\r\n\r\n");
    look([](const QWidget& window) {
        EXPECT_EQ(category(window).currentText(), "");
        EXPECT_EQ(category(window).lineEdit()->placeholderText(), "choose a grade");
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 3 \r\n\r\n\r\n 8 \r\n");
}

TEST_F(OptionsWindow, BrowsingStartsInTheHomeFolderUnlessTheBoxHoldsAPath)
{
    folder.write("game/sub/other.txt", "");
    const auto expectStart = [this](const QWidget& window, const QString& typed, const QString& start) {
        line(window, "Text1").setText(typed);
        prompts.expectFileToOpen({"Form2", {.startAt = start}}, "");
        press(window, "Command1");
    };
    look([&](const QWidget& window) {
        expectStart(window, "game/sub/other.txt", kavo::pathToScreen(folder / "game/sub"));
        expectStart(window, kavo::pathToScreen(folder / "game/stats.txt"), kavo::pathToScreen(folder / "game"));
        expectStart(window, "", QDir::homePath());
        expectStart(window, "\\stats.txt", QDir::homePath());  // as designed: nothing was chosen yet
        expectStart(window, "/unplugged/disk/stats.txt", QDir::homePath());
    });
}

TEST_F(OptionsWindow, ClearForgetsThePreviousResultsAndSaysSoEachTime)
{
    folder.write("Marek/1res.old", "old");
    look([this](QWidget& window) {
        for (int time = 1; time <= 2; ++time) {
            expectCleared();
            press(window, "Command5");
            EXPECT_FALSE(folder.has("Marek/1res.old"));
            EXPECT_EQ(window.focusWidget(), &option(window, "Option1"));
        }
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/1res.old"), folder.read("game/stats.txt"));
}

TEST_F(OptionsWindow, ClearIgnoresErrors)
{
    folder.write("Marek/1res.old/in the way", "");
    look([this](const QWidget& window) {
        expectCleared();
        press(window, "Command5");
    });
    EXPECT_TRUE(folder.has("Marek/1res.old/in the way"));
}

TEST_F(OptionsWindow, SaveOnTheFirstRunGivesOneCleanLoading)
{
    std::filesystem::remove(folder / "Marek/data.ini");
    folder.write("stats.txt", statisticsText({"00:33:33 Alice"}));
    lookAtStart([this](const QWidget& window) {
        EXPECT_EQ(cell(1, 1), "00:33:33");  // the program folder's own file was loaded
        type(line(window, "Text1"), "game/stats.txt");
        QTest::keyClick(&line(window, "Text1"), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 1 \r\n\\stats.txt\r\n\r\n 8 \r\n");
    EXPECT_EQ(list().model()->rowCount(), 55);
    EXPECT_EQ(cell(1, 1), "00:10:00");
    EXPECT_EQ(cell(1, 3), "00:10:00");
    EXPECT_EQ(cell(55, 0), "TOTAL TIME:");
    EXPECT_EQ(header(1), "Marek");
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(OptionsWindow, SaveKeepsTheFontSizeThatAFailedLoadingHasNotRead)
{
    folder.write("Marek/view.dat", "");
    std::filesystem::resize_file(folder / "Marek/view.dat", std::uintmax_t{1} << 40U);  // takes no room
    folder.write("Marek/data.ini", "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\n\r\n 13.5 \r\n");
    expectError("File too large: view.dat");
    look([this](const QWidget& window) {
        std::filesystem::remove(folder / "Marek/view.dat");
        press(window, "Command3");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\n\r\n 13.5 \r\n");
    EXPECT_DOUBLE_EQ(list().font().pointSizeF(), 13.5);
}

TEST_F(OptionsWindow, SettingsThatCouldNotBeReadAreShownBeforeTheyAreOverwritten)
{
    const std::string settings = "game/stats.txt\r\n 3 \r\nfriend/stats.txt\r\nGood\r\n 13.5 \r\n";
    folder.write("Marek/data.ini", "");
    std::filesystem::resize_file(folder / "Marek/data.ini", std::uintmax_t{1} << 40U);
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

TEST_F(OptionsWindow, SettingsThatCannotBeReadAreWrittenAnew)
{
    folder.write("Marek/data.ini", "");
    std::filesystem::resize_file(folder / "Marek/data.ini", std::uintmax_t{1} << 40U);
    expectError("File too large: data.ini");  // the loading's
    look([](const QWidget& window) {
        type(line(window, "Text1"), "game/stats.txt");
        press(window, "Command3");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 1 \r\n\\stats.txt\r\n\r\n 8 \r\n");
}

TEST_F(OptionsWindow, WrongFileOpensItAndSaveLoadsTheRightOne)
{
    folder.write("Marek/data.ini", "users.dat\r\n2\r\nfriend/stats.txt\r\n\r\n");
    prompts.expectMessage(Message{"Wrong file!"});
    lookAtStart([](const QWidget& window) {
        EXPECT_EQ(line(window, "Text1").text(), "users.dat");
        type(line(window, "Text1"), "game/stats.txt");
        press(window, "Command3");
    });
    EXPECT_EQ(list().model()->rowCount(), 55);
    EXPECT_EQ(cell(1, 1), "00:10:00");
    EXPECT_EQ(header(1), "Marek");
}

TEST_F(OptionsWindow, WrongFileAndCancelLeaveTheLoadingWhereItStood)
{
    folder.write("Marek/data.ini", "users.dat\r\n2\r\nfriend/stats.txt\r\n\r\n");
    prompts.expectMessage(Message{"Wrong file!"});
    lookAtStart([](QWidget& window) {
        QTest::keyPress(&window, Qt::Key_Escape);
        QTest::keyRelease(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(list().model()->rowCount(), 0);
    EXPECT_EQ(header(1), "Time 1");
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(OptionsWindow, WrongFileAgainAfterSaveOpensItAgain)
{
    startLoggedIn();
    bool isSecondThere = false;
    const auto useSecond = [&isSecondThere](const QWidget& second) {
        isSecondThere = true;
        type(line(second, "Text1"), "game/stats.txt");
        press(second, "Command3");
    };
    look([&](const QWidget& first) {
        type(line(first, "Text1"), "users.dat");
        prompts.expectMessage(Message{"Wrong file!"}, [&first] { EXPECT_FALSE(first.isVisible()); });
        EXPECT_TRUE(withWindow(
            "Form2", [&first] { press(first, "Command3"); }, useSecond));
    });
    EXPECT_TRUE(isSecondThere);
    EXPECT_EQ(list().model()->rowCount(), 55);
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\nGood\r\n 9 \r\n");
}

TEST_F(OptionsWindow, PathTooLongForItsBoxIsWrittenBackWhole)
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
