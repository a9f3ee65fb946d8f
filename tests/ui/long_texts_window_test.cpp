// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/screen_text.h"
#include "tests/support/window_fixture.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QRadioButton>
#include <QScrollArea>

/// Texts that no screen has room for: what is shown is cut, what is written stays whole.
namespace {

using kavo::toScreen;

TEST(ScreenText, IsCutWithAnEllipsis)
{
    EXPECT_EQ(toScreen("abc", 3), "abc");
    EXPECT_EQ(toScreen("abcd", 3), QString::fromUtf8("abc…"));
    EXPECT_EQ(toScreen("Ж\xE9Ж!", 3), QString::fromUtf8("ЖéЖ…"));
    EXPECT_EQ(toScreen(std::string(4096, 'x')).size(), 4096);
    EXPECT_EQ(toScreen(std::string(4097, 'x')).size(), 4097);  // and an ellipsis in place of the last
    EXPECT_TRUE(toScreen(std::string(4097, 'x')).endsWith(QChar(0x2026)));
    EXPECT_EQ(kavo::wholeToScreen(std::string(100'000, 'x')).size(), 100'000);
}

TEST(ScreenText, LeftAsItWasOfferedKeepsItsBytes)
{
    const std::string offered = std::string(10'000, '\xE9') + "end";
    EXPECT_EQ(kavo::fromScreen(toScreen(offered), offered), offered);
    EXPECT_EQ(kavo::fromScreen("new", offered), "new");
}

class LongTexts : public kavo::test::ProgramTest
{
protected:
    LongTexts()
    {
        folder.write("Marek/names.dat", m_names);
        folder.write("game/stats.txt", kavo::test::statisticsText({"00:10:00 Alice"}));
    }

    const std::string m_names = std::string(1'000'000, 'A') + "\r\n" + std::string(1'000'000, 'B') + "\r\n" +
                                std::string(1'000'000, 'C') + "\r\n";
};

TEST_F(LongTexts, AreShownInTheTableAsFarAsAScreenIsWide)
{
    startLoggedIn();
    EXPECT_EQ(header(1), QString(4096, 'A') + QChar(0x2026));
    EXPECT_EQ(cell(2, 8).size(), 4097);
    mainWindow().grab();
}

TEST_F(LongTexts, DoNotKeepAnyWindowFromOpening)
{
    startLoggedIn();
    for (const auto& row : kavo::test::allWindows())
        EXPECT_TRUE(withWindow(mainWindow(), row, [](QWidget& window) { window.grab(); })) << row.className;
}

TEST_F(LongTexts, WindowsWithNamesNeedNotBeScrolled)
{
    const std::string name(60, 'M');
    folder.write("Marek/names.dat", name + "\r\n" + name + "\r\n" + name + "\r\n");
    startLoggedIn();
    for (const char* className : {"Form6", "Form8"})
        for (const auto& row : kavo::test::allWindows()) {
            if (std::string_view(row.className) != className) continue;
            EXPECT_TRUE(withWindow(mainWindow(), row, [className](const QWidget& window) {
                EXPECT_EQ(window.findChild<QScrollArea*>(), nullptr) << className;
                const QString caption = window.findChild<QGroupBox*>("Frame1")->title() +
                                        (window.findChild<QRadioButton*>("Option1") != nullptr
                                             ? window.findChild<QRadioButton*>("Option1")->text()
                                             : QString());
                EXPECT_TRUE(caption.endsWith(QString(60, 'M'))) << className;
            }));
        }
}

TEST_F(LongTexts, StayWholeInTheirFile)
{
    startLoggedIn();
    const QString offered = QString(4096, 'B') + QChar(0x2026);
    prompts.expectLine({"Change player name", "Input player name:", offered}, offered);
    emit list().header()->sectionClicked(3);
    EXPECT_EQ(folder.read("Marek/names.dat"), m_names);
}

}  // namespace
