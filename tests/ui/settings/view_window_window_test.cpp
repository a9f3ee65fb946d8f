// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/settings/view_window_fixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr const char* kDefaults =
    " 16777215 \r\n 8388608 \r\n 0 \r\n 0 \r\n 255 \r\n 352255 \r\n 16737430 \r\n 2014745 \r\n 6579300 \r\n";
// Red 1, 2, ... 9
constexpr const char* kNine = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n";
constexpr const char* kNineWritten = " 1 \r\n 2 \r\n 3 \r\n 4 \r\n 5 \r\n 6 \r\n 7 \r\n 8 \r\n 9 \r\n";
constexpr const char* kSwatches[] = {"lCol_0",  "lCol_1",  "lCol_2",  "lCol_3", "Label10",
                                     "Label11", "Label12", "Label13", "Label14"};

using ViewWindow = kavo::test::ViewWindowTest;

TEST_F(ViewWindow, HasItsCaptionsAndTooltips)
{
    look([](const QWidget& window) {
        const std::pair<const char*, QString> frames[] = {
            {"Frame1", "Font size"}, {"Frame2", "Colors"}, {"Frame3", "Targets"}, {"Frame4", "Color-shemes"}};
        for (const auto& [name, title] : frames) EXPECT_EQ(control<QGroupBox>(window, name).title(), title);
        const std::pair<const char*, QString> labels[] = {{"Label1", "Background:"},
                                                          {"Label2", "Frames' color:"},
                                                          {"Label3", "Simple text:"},
                                                          {"Label4", "Main window's text"},
                                                          {"Label5", "WR"},
                                                          {"Label6", "WC"},
                                                          {"Label7", "Prof"},
                                                          {"Label8", "Good"},
                                                          {"Label9", "OK"}};
        for (const auto& [name, text] : labels) EXPECT_EQ(control<QLabel>(window, name).text(), text);
        const std::pair<const char*, QString> buttons[] = {{"Command1", "OK"},       {"Command2", "&Save"},
                                                           {"Command3", "&Default"}, {"Command4", "Close"},
                                                           {"Command5", "Set"},      {"Command6", "Save"}};
        for (const auto& [name, text] : buttons) EXPECT_EQ(button(window, name).text(), text);
        EXPECT_EQ(control<QLineEdit>(window, "Text2").toolTip(),
                  "Input the name, you want to use to save color-sheme. Write it without \".ini\".");
        EXPECT_EQ(control<QGroupBox>(window, "Frame1").toolTip(),
                  QString::fromUtf8("Этот шрифт используется только в главном окне"));
        EXPECT_EQ(size(window).value(), 8);  // never the size in force, which is 9 here
        EXPECT_FALSE(button(window, "Command5").isEnabled());
    });
}

TEST_F(ViewWindow, ShowsTheNineColoursOfTheFile)
{
    folder.write(kColours, kNine);
    look([](const QWidget& window) {
        for (int i = 0; i < 9; ++i) EXPECT_EQ(shown(window, kSwatches[i]), QColor(i + 1, 0, 0)) << kSwatches[i];
    });
    EXPECT_EQ(folder.read(kColours), kNine);
}

TEST_F(ViewWindow, ShowsTheDefaultsWithoutAFile)
{
    look([](const QWidget& window) {
        const QColor colours[] = {{255, 255, 255}, {0, 0, 128},     {0, 0, 0},     {0, 0, 0},      {255, 0, 0},
                                  {255, 95, 5},    {150, 100, 255}, {25, 190, 30}, {100, 100, 100}};
        for (int i = 0; i < 9; ++i) EXPECT_EQ(shown(window, kSwatches[i]), colours[i]) << kSwatches[i];
    });
    EXPECT_FALSE(folder.has(kColours));
}

TEST_F(ViewWindow, UpgradesAFileOfFourLines)
{
    folder.write(kColours, "100\r\n200\r\n30\r\n40\r\n");
    look([this](const QWidget& window) {
        EXPECT_EQ(folder.read(kColours),
                  " 100 \r\n 200 \r\n 30 \r\n 40 \r\n 255 \r\n 352255 \r\n 16737430 \r\n 2014745 \r\n 6579300 \r\n");
        EXPECT_EQ(shown(window, "lCol_0"), QColor(100, 0, 0));
        EXPECT_EQ(shown(window, "Label12"), QColor(150, 100, 255));
    });
}

TEST_F(ViewWindow, UpgradeTakesNoGradeColourFromABrokenFile)
{
    folder.write(kColours, "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n");
    look([](const QWidget& window) { EXPECT_EQ(shown(window, "Label10"), QColor(255, 0, 0)); });
    EXPECT_EQ(folder.read(kColours),
              " 1 \r\n 2 \r\n 3 \r\n 4 \r\n 255 \r\n 352255 \r\n 16737430 \r\n 2014745 \r\n 6579300 \r\n");
}

TEST_F(ViewWindow, PicksColoursByMouseAndKeyboardAndWritesNothingYet)
{
    folder.write(kColours, kNine);
    look([this](const QWidget& window) {
        prompts.expectColour(QColor(1, 0, 0), QColor(0, 0, 1));
        click(swatch(window, "lCol_0"));
        prompts.expectColour(QColor(4, 0, 0), QColor(0, 4, 0));
        QTest::keyClick(&swatch(window, "lCol_3"), Qt::Key_Space);
        prompts.expectColour(QColor(5, 0, 0), QColor(0, 0, 5));
        QTest::keyClick(&swatch(window, "Label10"), Qt::Key_Return);
        prompts.expectColour(QColor(9, 0, 0), QColor(9, 0, 0));
        click(swatch(window, "Label14"));
        EXPECT_EQ(shown(window, "lCol_0"), QColor(0, 0, 1));
        EXPECT_EQ(shown(window, "lCol_3"), QColor(0, 4, 0));
        EXPECT_EQ(shown(window, "Label10"), QColor(0, 0, 5));
        EXPECT_EQ(shown(window, "Label14"), QColor(9, 0, 0));
        EXPECT_EQ(folder.read(kColours), kNine);
        press(window, "Command2");
        EXPECT_TRUE(window.isVisible());
    });
    // 0x010000 = 65536; 0x0400 = 1024; 0x050000 = 327680
    EXPECT_EQ(folder.read(kColours), " 65536 \r\n 2 \r\n 3 \r\n 1024 \r\n 327680 \r\n 6 \r\n 7 \r\n 8 \r\n 9 \r\n");
    EXPECT_EQ(list().palette().color(QPalette::Base), QColor(0, 0, 1));
    EXPECT_EQ(list().palette().color(QPalette::Text), QColor(0, 4, 0));
}

TEST_F(ViewWindow, EverySwatchPicksItsOwnColour)
{
    folder.write(kColours, kNine);
    look([this](const QWidget& window) {
        for (int i = 0; i < 9; ++i) {
            prompts.expectColour(QColor(i + 1, 0, 0), QColor(i + 101, 0, 0));
            click(swatch(window, kSwatches[i]));
        }
        press(window, "Command2");
    });
    EXPECT_EQ(folder.read(kColours),
              " 101 \r\n 102 \r\n 103 \r\n 104 \r\n 105 \r\n 106 \r\n 107 \r\n 108 \r\n 109 \r\n");
}

TEST_F(ViewWindow, SaveReopensTheWindowAsItBegins)
{
    look([](const QWidget& window) {
        size(window).setValue(12);
        QTest::keyClicks(&control<QLineEdit>(window, "Text2"), "mine");
        press(window, "Command6");
        choose(window, "mine");
        EXPECT_TRUE(button(window, "Command5").isEnabled());
        press(window, "Command2");
        EXPECT_EQ(size(window).value(), 8);
        EXPECT_EQ(control<QLineEdit>(window, "Text2").text(), "");
        EXPECT_EQ(schemes(window).currentText(), "");
        EXPECT_FALSE(button(window, "Command5").isEnabled());
    });
}

TEST_F(ViewWindow, DefaultWritesTheDefaultsAndPaintsThem)
{
    folder.write(kColours, kNine);
    look([](const QWidget& window) {
        EXPECT_EQ(window.palette().color(QPalette::Window), QColor(1, 0, 0));
        press(window, "Command3");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.palette().color(QPalette::Window), QColor(255, 255, 255));
        EXPECT_EQ(shown(window, "Label11"), QColor(255, 95, 5));
    });
    EXPECT_EQ(folder.read(kColours), kDefaults);
    EXPECT_EQ(list().palette().color(QPalette::Base), QColor(255, 255, 255));
}

TEST_F(ViewWindow, FailedSaveIsToldOnceAndKeepsTheWindow)
{
    folder.write("Marek/colors/colors.ini/in the way", "");
    look([this](const QWidget& window) {
        expectError("Path/File access error: colors.ini");
        press(window, "Command2");
        EXPECT_TRUE(window.isVisible());
    });
    EXPECT_TRUE(folder.has("Marek/colors/colors.ini/in the way"));
}

TEST_F(ViewWindow, ListsTheSchemesButNotTheFileInForce)
{
    folder.write("Marek/colors/Colors.INI", kNine);
    folder.write("Marek/colors/night.ini", kNine);
    folder.write("Marek/colors/Day.INI", kNine);
    folder.write("Marek/colors/\xD0\xBB\xD0\xB5\xD1\x82\xD0\xBE.ini", kNine);
    folder.write("Marek/colors/colors_prev.ini", kNine);
    folder.write("Marek/colors/notes.txt", "");
    folder.write("Marek/colors/folder.ini/file", "");
    look([](const QWidget& window) {
        EXPECT_EQ(listed(window), QStringList({"colors_prev", "Day", "night", QString::fromUtf8("лето")}));
        EXPECT_EQ(schemes(window).currentText(), "");
    });
}

TEST_F(ViewWindow, SavesTheColoursShownAsAScheme)
{
    folder.write(kColours, kNine);
    folder.write("Marek/colors/mine.ini", "old");
    look([this](const QWidget& window) {
        prompts.expectColour(QColor(2, 0, 0), QColor(102, 0, 0));
        click(swatch(window, "lCol_1"));
        QTest::keyClicks(&control<QLineEdit>(window, "Text2"), "mine");
        press(window, "Command6");
        EXPECT_EQ(folder.read("Marek/colors/mine.ini"),
                  " 1 \r\n 102 \r\n 3 \r\n 4 \r\n 5 \r\n 6 \r\n 7 \r\n 8 \r\n 9 \r\n");
    });
    EXPECT_EQ(folder.read(kColours), kNine);
}

TEST_F(ViewWindow, SchemeNamedColorsReplacesTheColoursInForce)
{
    folder.write(kColours, kNine);
    look([this](const QWidget& window) {
        QTest::keyClicks(&control<QLineEdit>(window, "Text2"), "COLORS");
        press(window, "Command6");
        EXPECT_EQ(folder.read(kColours), kNineWritten);
        EXPECT_FALSE(folder.has("Marek/colors/COLORS.ini"));
    });
}

TEST_F(ViewWindow, SchemeNameLeadsNowhereElse)
{
    look([this](const QWidget& window) {
        auto& name = control<QLineEdit>(window, "Text2");
        for (const char* bad : {"../stolen", "a\\b", ".", ".."}) {
            name.setText(QLatin1StringView(bad));
            expectError("Path not found");
            press(window, "Command6");
        }
        name.clear();
        press(window, "Command6");
    });
    EXPECT_FALSE(folder.has("Marek/stolen.ini"));
    EXPECT_EQ(folder.read("Marek/colors/.ini"), kDefaults);
}

TEST_F(ViewWindow, SchemeIsNotSavedWithoutTheFolder)
{
    look([this](const QWidget& window) {
        std::filesystem::remove_all(folder / "Marek/colors");
        QTest::keyClicks(&control<QLineEdit>(window, "Text2"), "mine");
        press(window, "Command6");
    });
    EXPECT_FALSE(folder.has("Marek/colors"));
}

TEST_F(ViewWindow, EnterInTheNameOfASchemeSavesThatAndNothingElse)
{
    look([this](const QWidget& window) {
        auto& name = control<QLineEdit>(window, "Text2");
        QTest::keyClick(&name, Qt::Key_Return);
        EXPECT_FALSE(folder.has("Marek/colors/.ini")) << "there is no name yet";
        QTest::keyClicks(&name, "mine");
        QTest::keyClick(&name, Qt::Key_Return);
        EXPECT_EQ(folder.read("Marek/colors/mine.ini"), kDefaults);
        EXPECT_FALSE(folder.has(kColours));
        EXPECT_TRUE(window.isVisible());
    });
}

TEST_F(ViewWindow, SavedSchemeIsTheChosenOneInTheList)
{
    folder.write("Marek/colors/Day.ini", kNine);
    folder.write("Marek/colors/night.ini", kNine);
    look([](const QWidget& window) {
        choose(window, "night");
        auto& name = control<QLineEdit>(window, "Text2");
        QTest::keyClicks(&name, "mine");
        press(window, "Command6");
        EXPECT_EQ(schemes(window).currentText(), "mine");
        EXPECT_TRUE(button(window, "Command5").isEnabled());
        name.setText("DAY");
        press(window, "Command6");
        EXPECT_EQ(schemes(window).currentText(), "Day") << "the file of that name, whatever its case";
    });
}

TEST_F(ViewWindow, SwatchesSayWhatTheirColoursAreFor)
{
    look([](const QWidget& window) {
        const std::pair<const char*, QString> tips[] = {
            {"lCol_0", "Background of all windows and of the results table"},
            {"lCol_1", "Titles of frames"},
            {"lCol_2", "Labels and option buttons"},
            {"lCol_3", "Results table: text, and Beginner grades"},
            {"Label10", "Results table: World Record grades"},
            {"Label11", "Results table: World Class grades"},
            {"Label12", "Results table: Professional grades"},
            {"Label13", "Results table: Good grades"},
            {"Label14", "Results table: OK grades"},
        };
        for (const auto& [name, tip] : tips) EXPECT_EQ(swatch(window, name).toolTip(), tip);
    });
}

TEST_F(ViewWindow, SetTwiceKeepsTheColoursInForceBeforeTheSecond)
{
    folder.write(kColours, kNine);
    const std::string day = "11\r\n12\r\n13\r\n14\r\n15\r\n16\r\n17\r\n18\r\n19\r\n";
    const std::string night = "21\r\n22\r\n23\r\n24\r\n25\r\n26\r\n27\r\n28\r\n29\r\n";
    folder.write("Marek/colors/Day.INI", day);
    folder.write("Marek/colors/night.ini", night);
    look([&](const QWidget& window) {
        choose(window, "Day");
        press(window, "Command5");
        EXPECT_EQ(folder.read(kColours), day);
        EXPECT_EQ(folder.read(kPrevious), kNine);
        EXPECT_EQ(shown(window, "lCol_0"), QColor(11, 0, 0));
        EXPECT_EQ(window.palette().color(QPalette::Window), QColor(11, 0, 0));
        EXPECT_EQ(listed(window), QStringList({"colors_prev", "Day", "night"}));
        // The main window takes the colours at its next loading.
        EXPECT_EQ(list().palette().color(QPalette::Base), QColor(1, 0, 0));
        choose(window, "night");
        press(window, "Command5");
        EXPECT_EQ(folder.read(kColours), night);
        EXPECT_EQ(folder.read(kPrevious), day);
    });
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(list().palette().color(QPalette::Base), QColor(21, 0, 0));
}

TEST_F(ViewWindow, SetKeepsTheChoice)
{
    folder.write("Marek/colors/day.ini", kNine);
    look([this](const QWidget& window) {
        choose(window, "day");
        press(window, "Command5");
        EXPECT_FALSE(folder.has(kPrevious));  // there were no colours in force
        EXPECT_EQ(schemes(window).currentText(), "day");
        press(window, "Command5");
        EXPECT_EQ(folder.read(kPrevious), kNine);
        EXPECT_EQ(folder.read(kColours), kNine);
    });
}

TEST_F(ViewWindow, SettingTheColoursBeforeChangesNothing)
{
    folder.write(kColours, kNine);
    folder.write(kPrevious, kDefaults);
    look([](const QWidget& window) {
        choose(window, "colors_prev");
        press(window, "Command5");
    });
    EXPECT_EQ(folder.read(kColours), kNine);
    EXPECT_EQ(folder.read(kPrevious), kNine);
}

TEST_F(ViewWindow, SchemeThatHasGoneLosesNothing)
{
    folder.write(kColours, kNine);
    folder.write("Marek/colors/day.ini", kNine);
    look([this](const QWidget& window) {
        choose(window, "day");
        std::filesystem::remove(folder / "Marek/colors/day.ini");
        expectError("File not found: day.ini");
        press(window, "Command5");
    });
    EXPECT_EQ(folder.read(kColours), kNine);
    EXPECT_FALSE(folder.has(kPrevious));
}

TEST_F(ViewWindow, ButtonsStayLegibleOnAnyColours)
{
    for (const char* colour : {"0", "16777215"}) {
        std::string file;
        for (int line = 0; line < 9; ++line) file += std::string(colour) + "\r\n";
        folder.write(kColours, file);
        look([](const QWidget& window) {
            for (const char* name : {"Command1", "Command2", "Command3", "Command4", "Command6"}) {
                const QPalette palette = button(window, name).palette();
                const int text = palette.color(QPalette::ButtonText).lightness();
                const int ground = palette.color(QPalette::Button).lightness();
                EXPECT_GT(std::abs(text - ground), 100) << name;
            }
        });
    }
}

}  // namespace
