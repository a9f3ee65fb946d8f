// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/screen_text.h"
#include "tests/ui/settings/options_window_fixture.h"

#include <QDir>
#include <QGroupBox>

namespace {

using OptionsWindow = kavo::test::OptionsWindowTest;
using kavo::test::kPatience;

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

TEST_F(OptionsWindow, TabGoesToTheChosenMethod)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n 2 \r\n\r\n\r\n");
    look([](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }, kPatience));
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        ASSERT_NE(window.focusWidget(), nullptr);
        EXPECT_EQ(window.focusWidget()->objectName(), "Command5");
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), "Option2");
    });
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

}  // namespace
