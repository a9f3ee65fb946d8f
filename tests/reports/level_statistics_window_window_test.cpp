// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/level_statistics_window.h"
#include "tests/support/report_window_fixture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

class LevelStatisticsWindow : public kavo::test::ReportWindowTest
{
protected:
    static QComboBox& levels(const Form10& window) { return control<QComboBox>(window, "Combo1"); }
    static int level(const Form10& window) { return levels(window).currentIndex() + 1; }

    static QProgressBar& bar(const Form10& window, int index)
    {
        return control<QProgressBar>(window, QString("pgb_%1").arg(index));
    }

    static QLabel& time(const Form10& window, int index)
    {
        return control<QLabel>(window, QString("Label1_%1").arg(index));
    }

    static QLabel& name(const Form10& window, int index)
    {
        return control<QLabel>(window, QString("Label2_%1").arg(index));
    }

    /// The indices of the rows from the top, as they stand on the screen.
    static std::vector<int> order(const Form10& window)
    {
        std::vector<int> indices = {0, 1, 2, 3, 4, 5, 6};
        std::sort(indices.begin(), indices.end(), [&window](int a, int b) {
            return bar(window, a).geometry().top() < bar(window, b).geometry().top();
        });
        return indices;
    }

    static void press(const Form10& window, const char* button) { click(control<QPushButton>(window, button)); }

    void setTimes(int row, std::string_view time1, std::string_view time2)
    {
        session.table.setText(row, kavo::Column::Time1, time1);
        session.table.setText(row, kavo::Column::Time2, time2);
    }
};

using Rows = std::vector<int>;

TEST_F(LevelStatisticsWindow, HasItsCaptionsAndNames)
{
    Form10 window(services, nullptr);
    EXPECT_EQ(window.objectName(), "Form10");
    EXPECT_EQ(window.windowTitle(), "Levels' statistics");
    EXPECT_EQ(control<QGroupBox>(window, "Frame1").title(), "Level");
    EXPECT_EQ(control<QGroupBox>(window, "Frame2").title(), "Times");
    const QStringList buttons = {"->", "<-", "<---", "--->", "Close"};
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(control<QPushButton>(window, QString("Command%1").arg(i)).text(), buttons.at(i - 1));
    const QStringList names = {"World Record", "World Class", "Professional", "Good", "OK", "Alice", "Bob"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(name(window, i).text(), names.at(i));
        EXPECT_EQ(bar(window, i).toolTip(), names.at(i));
        EXPECT_EQ(time(window, i).toolTip(), names.at(i));
        EXPECT_EQ(bar(window, i).orientation(), Qt::Horizontal);
    }
    expectPainted(window, name(window, 0));
}

TEST_F(LevelStatisticsWindow, ListsTheLevelsWithoutTheirLastCharacterAndTheWholeSet)
{
    session.table.setText(7, kavo::Column::Level, "7, Жёлтый ");
    session.table.setText(8, kavo::Column::Level, "");
    Form10 window(services, nullptr);
    ASSERT_EQ(levels(window).count(), 55);
    EXPECT_EQ(levels(window).itemText(0), "1, Trac");
    EXPECT_EQ(levels(window).itemText(6), "7, Жёлтый");
    EXPECT_EQ(levels(window).itemText(7), "");
    EXPECT_EQ(levels(window).itemText(54), "Total Time");
}

TEST_F(LevelStatisticsWindow, OpensOnTheSelectedRow)
{
    EXPECT_EQ(level(Form10(services, nullptr)), 55);
    session.table.selectRow(12);
    EXPECT_EQ(level(Form10(services, nullptr)), 12);
    session.table.selectRow(0);
    Form10 withoutSelection(services, nullptr);
    EXPECT_EQ(level(withoutSelection), 1);
    EXPECT_EQ(time(withoutSelection, 0).text(), "00:10:00");
    session.table.selectRow(56);
    EXPECT_EQ(level(Form10(services, nullptr)), 55);
}

TEST_F(LevelStatisticsWindow, ShowsTheWholeSetAgainstItsTargets)
{
    Form10 window(services, nullptr);
    const QStringList times = {"20:00:00", "25:00:00", "30:00:00", "40:00:00", "50:00:00", "27:00:00", "36:00:00"};
    const std::vector<int> values = {120000, 150000, 180000, 240000, 300000, 162000, 216000};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(time(window, i).text(), times.at(i));
        EXPECT_EQ(bar(window, i).maximum(), 300000);
        EXPECT_EQ(bar(window, i).value(), values.at(static_cast<std::size_t>(i)));
    }
}

TEST_F(LevelStatisticsWindow, FastestRowStandsOnTop)
{
    setTimes(1, "00:15:00", "00:05:00");
    session.table.selectRow(1);
    Form10 window(services, nullptr);
    showAndWait(window);
    EXPECT_EQ(order(window), (Rows{6, 0, 5, 1, 2, 3, 4}));
    for (int i = 0; i < 7; ++i) {
        const int centre = bar(window, i).geometry().center().y();
        EXPECT_NEAR(name(window, i).geometry().center().y(), centre, 1);
        EXPECT_NEAR(time(window, i).geometry().center().y(), centre, 1);
    }
}

TEST_F(LevelStatisticsWindow, SkippedIsAnEmptyBarAtTheBottomAndAnEmptyCellOneAtTheTop)
{
    setTimes(2, "SKIPPED", "");
    session.table.selectRow(2);
    Form10 window(services, nullptr);
    showAndWait(window);
    EXPECT_EQ(order(window), (Rows{6, 0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(time(window, 5).text(), "SKIPPED");
    EXPECT_EQ(bar(window, 5).value(), 0);
    EXPECT_EQ(bar(window, 6).value(), 0);
    // "SKIPPED" sorts after the target and counts 0 as the scale.
    EXPECT_EQ(bar(window, 0).maximum(), 1);
}

TEST_F(LevelStatisticsWindow, TimeBeyondTheScaleFillsItsBar)
{
    setTimes(1, "01:10:00", "00:55:00");
    session.table.selectRow(1);
    Form10 window(services, nullptr);
    EXPECT_EQ(bar(window, 5).maximum(), 5500);
    EXPECT_EQ(bar(window, 5).value(), 5500);
    EXPECT_EQ(time(window, 5).text(), "01:10:00");
}

TEST_F(LevelStatisticsWindow, OrderCarriesOverFromLevelToLevel)
{
    setTimes(1, "00:15:00", "00:05:00");
    setTimes(2, "00:55:00", "00:55:00");
    session.table.selectRow(1);
    Form10 window(services, nullptr);
    showAndWait(window);
    press(window, "Command1");
    EXPECT_EQ(level(window), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(order(window), (Rows{0, 1, 2, 3, 4, 6, 5}));
}

TEST_F(LevelStatisticsWindow, ArrowsWalkThroughTheLevels)
{
    session.table.selectRow(3);
    Form10 window(services, nullptr);
    showAndWait(window);
    press(window, "Command2");
    EXPECT_EQ(level(window), 2);
    press(window, "Command2");
    EXPECT_EQ(level(window), 2) << "only <--- leads to the first level";
    press(window, "Command3");
    EXPECT_EQ(level(window), 1);
    press(window, "Command2");
    EXPECT_EQ(level(window), 1);
    press(window, "Command1");
    EXPECT_EQ(level(window), 2);
    press(window, "Command4");
    EXPECT_EQ(level(window), 55);
    EXPECT_EQ(time(window, 0).text(), "20:00:00");
    press(window, "Command1");
    EXPECT_EQ(level(window), 55);
    press(window, "Command2");
    EXPECT_EQ(level(window), 54);
    EXPECT_EQ(time(window, 0).text(), "00:10:00");
}

TEST_F(LevelStatisticsWindow, ComboChoosesByKeyboard)
{
    session.table.selectRow(3);
    setTimes(4, "00:11:11", "00:40:00");
    Form10 window(services, nullptr);
    showAndWait(window);
    QTest::keyClick(&levels(window), Qt::Key_Down);
    EXPECT_EQ(level(window), 4);
    EXPECT_EQ(time(window, 5).text(), "00:11:11");
}

TEST_F(LevelStatisticsWindow, NamesAreShownAsTheyAre)
{
    session.state.Player1Name = "<b>x</b> & y";
    Form10 window(services, nullptr);
    EXPECT_EQ(name(window, 5).text(), "<b>x</b> & y");
    EXPECT_EQ(name(window, 5).textFormat(), Qt::PlainText);
    EXPECT_EQ(bar(window, 5).toolTip(), "&lt;b&gt;x&lt;/b&gt; &amp; y");
}

TEST_F(LevelStatisticsWindow, EmptyTableAndNoTargetsShowEmptyBars)
{
    session.table.clear();
    session.state = {};
    Form10 window(services, nullptr);
    EXPECT_EQ(levels(window).count(), 55);
    EXPECT_EQ(bar(window, 0).maximum(), 1);
    EXPECT_EQ(bar(window, 0).value(), 0);
}

TEST_F(LevelStatisticsWindow, ClosesWithItsButtonAndWithEscape)
{
    Form10 window(services, nullptr);
    showAndWait(window);
    press(window, "Command5");
    EXPECT_FALSE(window.isVisible());
    showAndWait(window);
    expectEscapeCloses(window, levels(window));
}

}  // namespace
