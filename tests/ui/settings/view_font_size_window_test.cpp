// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/settings/view_window_fixture.h"

#include <QLineEdit>
#include <QTreeView>

namespace {

using ViewFontSize = kavo::test::ViewWindowTest;

TEST_F(ViewFontSize, EnterInTheFontSizeAppliesItAndKeepsTheOtherLines)
{
    look([this](QWidget& window) {
        size(window).setFocus();
        size(window).selectAll();
        QTest::keyClicks(&size(window), "13");
        QTest::keyClick(&size(window), Qt::Key_Return);
        EXPECT_EQ(list().font().pointSizeF(), 13);
        EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\nGood\r\n 13 \r\n");
        EXPECT_EQ(control<QLineEdit>(window, "qt_spinbox_lineedit").selectedText(), "13");
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(folder.has(kColours));
        EXPECT_EQ(window.font(), QApplication::font(&window)) << "of the table alone";
    });
}

TEST_F(ViewFontSize, FontSizeTakesThePlaceOfTheLastLineWhicheverItIs)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n2\r\nfriend/stats.txt\r\nGood\r\n");
    look([](const QWidget& window) {
        QTest::keyClick(&size(window), Qt::Key_Up);
        press(window, "Command1");
    });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n2\r\nfriend/stats.txt\r\n 9 \r\n");
}

TEST_F(ViewFontSize, FontSizeWithoutSettingsIsShownButNotKept)
{
    look([this](const QWidget& window) {
        std::filesystem::remove(folder / "Marek/data.ini");
        size(window).setValue(14);
        expectError("File not found: data.ini");
        press(window, "Command1");
        EXPECT_EQ(list().font().pointSizeF(), 14);
    });
    EXPECT_FALSE(folder.has("Marek/data.ini"));
}

TEST_F(ViewFontSize, FontSizeAppliedIsWrittenByTheOptions)
{
    folder.write("Marek/1res.old", folder.read("game/stats.txt"));
    look([](const QWidget& window) {
        size(window).setValue(11);
        press(window, "Command1");
    });
    withKey("Form2", Qt::Key_F2, [](const QWidget& window) { press(window, "Command3"); });
    EXPECT_EQ(folder.read("Marek/data.ini"), "game/stats.txt\r\n 2 \r\nfriend/stats.txt\r\nGood\r\n 11 \r\n");
    EXPECT_EQ(list().font().pointSizeF(), 11);
}

}  // namespace
