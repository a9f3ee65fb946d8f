// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/settings/options_window_fixture.h"

#include <QTreeView>

namespace {

using kavo::Message;
using OptionsOfLoading = kavo::test::OptionsWindowTest;
using kavo::test::statisticsText;
using kavo::test::withWindow;

TEST_F(OptionsOfLoading, OpensByItselfOnTheFirstRunWithTheDesignedValues)
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

TEST_F(OptionsOfLoading, SaveOnTheFirstRunGivesOneCleanLoading)
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

TEST_F(OptionsOfLoading, WrongFileOpensItAndSaveLoadsTheRightOne)
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

TEST_F(OptionsOfLoading, WrongFileAndCancelLeaveTheLoadingWhereItStood)
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

TEST_F(OptionsOfLoading, WrongFileAgainAfterSaveOpensItAgain)
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

}  // namespace
