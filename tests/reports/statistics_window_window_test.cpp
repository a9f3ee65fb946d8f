// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "reports/statistics_window.h"
#include "tests/support/report_window_fixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace {

class StatisticsWindow : public kavo::test::ReportWindowTest
{
protected:
    static std::vector<int> bars(const Form6& window)
    {
        std::vector<int> values;
        for (int i = 1; i <= 7; ++i)
            values.push_back(control<QProgressBar>(window, QString("ProgressBar%1").arg(i)).value());
        return values;
    }

    /// As they stand above the bars.
    static std::vector<int> numbers(const Form6& window)
    {
        std::vector<int> values;
        for (int i = 1; i <= 7; ++i)
            values.push_back(control<QLabel>(window, QString("Number%1").arg(i)).text().toInt());
        return values;
    }

    static QString text(const Form6& window) { return control<QPlainTextEdit>(window, "Text1").toPlainText(); }

    static void choose(const Form6& window, const char* option)
    {
        QTest::mouseClick(&control<QRadioButton>(window, option), Qt::LeftButton, {}, QPoint(8, 8));
    }
};

using Values = std::vector<int>;

TEST_F(StatisticsWindow, HasItsCaptionsAndPlayerNames)
{
    Form6 window(services, nullptr);
    EXPECT_STREQ(window.metaObject()->className(), "Form6");
    EXPECT_EQ(window.objectName(), "Form6");
    EXPECT_EQ(window.windowTitle(), "Statistics");
    EXPECT_EQ(control<QGroupBox>(window, "Frame1").title(), "Player");
    EXPECT_EQ(control<QRadioButton>(window, "Option1").text(), "Alice");
    EXPECT_EQ(control<QRadioButton>(window, "Option2").text(), "Bob");
    EXPECT_EQ(control<QRadioButton>(window, "Option3").text(), "Dust Devils");
    EXPECT_EQ(control<QPushButton>(window, "Command1").text(), "&Close");
    const QStringList labels = {"Beginner", "OK", "Good", "Professional", "WC", "WR", "Victories"};
    for (int i = 1; i <= 7; ++i) EXPECT_EQ(control<QLabel>(window, QString("Label%1").arg(i)).text(), labels.at(i - 1));
    expectPainted(window, control<QLabel>(window, "Label1"));
}

TEST_F(StatisticsWindow, OpensOnPlayer1)
{
    kavo::test::countUp(session.state);
    Form6 window(services, nullptr);
    EXPECT_TRUE(control<QRadioButton>(window, "Option1").isChecked());
    EXPECT_EQ(bars(window), (Values{6, 5, 4, 3, 2, 1, 30}));
    EXPECT_EQ(numbers(window), (Values{6, 5, 4, 3, 2, 1, 30}));
    EXPECT_EQ(text(window),
              "Your statistics: \nWorld Records:\t1\nWorld Class:\t2\nProfessional:\t3\nGood:        \t4\n"
              "OK:           \t5\nBeginner: \t6\nVictories:  \t30");
}

TEST_F(StatisticsWindow, OptionsChooseWhoseFigures)
{
    kavo::test::countUp(session.state);
    Form6 window(services, nullptr);
    showAndWait(window);
    choose(window, "Option2");
    EXPECT_EQ(bars(window), (Values{16, 15, 14, 13, 12, 11, 17}));
    choose(window, "Option3");
    EXPECT_EQ(bars(window), (Values{26, 25, 24, 23, 22, 21, 47}));
    EXPECT_TRUE(text(window).endsWith("\nVictories:  \t47"));
    QTest::keyClick(&control<QRadioButton>(window, "Option3"), Qt::Key_Up);
    EXPECT_EQ(bars(window), (Values{16, 15, 14, 13, 12, 11, 17}));
    choose(window, "Option1");
    EXPECT_EQ(bars(window), (Values{6, 5, 4, 3, 2, 1, 30}));
}

TEST_F(StatisticsWindow, BarsAreVerticalWithOneUnitPerLevelAndShowTheirCountAsTooltip)
{
    session.state.Beg1 = 54;
    Form6 window(services, nullptr);
    for (int i = 1; i <= 7; ++i) {
        const auto& bar = control<QProgressBar>(window, QString("ProgressBar%1").arg(i));
        EXPECT_EQ(bar.orientation(), Qt::Vertical);
        EXPECT_EQ(bar.minimum(), 0);
        EXPECT_EQ(bar.maximum(), 54);
        EXPECT_EQ(bar.toolTip(), i == 1 ? QString("54") : QString("0"));
        EXPECT_EQ(bar.value(), i == 1 ? 54 : 0);
    }
}

TEST_F(StatisticsWindow, BarsStandAtEqualDistancesAndCloserTogetherWhereRoomIsScarce)
{
    Form6 window(services, nullptr);
    showAndWait(window);
    const auto middle = [&window](int bar) {
        const auto& label = control<QLabel>(window, QString("Label%1").arg(bar));
        return label.geometry().center().x();
    };
    const int distance = middle(2) - middle(1);
    for (int bar = 3; bar <= 7; ++bar) EXPECT_NEAR(middle(bar) - middle(bar - 1), distance, 1) << bar;
    EXPECT_LT(window.minimumSizeHint().width(), window.sizeHint().width() * 3 / 4);
    window.resize(window.minimumSizeHint());
    QApplication::processEvents();
    EXPECT_LT(middle(2) - middle(1), distance);
    for (int bar = 1; bar <= 7; ++bar) {
        const auto& label = control<QLabel>(window, QString("Label%1").arg(bar));
        EXPECT_GE(label.width(), label.sizeHint().width()) << bar;
    }
}

TEST_F(StatisticsWindow, WithoutResultsEverythingIsZero)
{
    Form6 window(services, nullptr);
    EXPECT_EQ(bars(window), Values(7, 0));
    EXPECT_EQ(text(window).count("\t0"), 7);
}

TEST_F(StatisticsWindow, AmpersandInANameIsShown)
{
    session.state.TeamName = "Tom & Ann";
    Form6 window(services, nullptr);
    EXPECT_EQ(control<QRadioButton>(window, "Option3").text(), "Tom && Ann");
}

TEST_F(StatisticsWindow, ClosesWithItsButtonAndWithEscape)
{
    Form6 window(services, nullptr);
    showAndWait(window);
    click(control<QPushButton>(window, "Command1"));
    EXPECT_FALSE(window.isVisible());
    showAndWait(window);
    expectEscapeCloses(window, control<QPlainTextEdit>(window, "Text1"));
}

TEST_F(StatisticsWindow, CurrentUserOfAnyCaseIsFoundAndAMissingOneIsAnError)
{
    std::filesystem::rename(folder / "curUser.dat", folder / "curuser.dat");
    EXPECT_NO_THROW(Form6(services, nullptr));
    std::filesystem::remove(folder / "curuser.dat");
    EXPECT_THROW(Form6(services, nullptr), kavo::RunTimeError);
}

class StatisticsFromMenu : public kavo::test::ProgramTest
{
protected:
    /// Opens the window by its key, looks at the caption and closes it again.
    QString captionOnOpening()
    {
        QString caption;
        QTimer::singleShot(0, &mainWindow(), [&caption] {
            QWidget* window = QApplication::activeModalWidget();
            caption = window->windowTitle();
            QTest::keyClick(window, Qt::Key_Escape);
        });
        QTest::keyClick(&mainWindow(), Qt::Key_F7);
        return caption;
    }
};

TEST_F(StatisticsFromMenu, FirstOpeningHasTheDesignedCaptionLaterOnesTheUsers)
{
    startLoggedIn();
    EXPECT_EQ(captionOnOpening(), "Statistics");
    EXPECT_EQ(captionOnOpening(), "Statistics of user: Marek");
    QTest::keyClick(&mainWindow(), Qt::Key_F5);
    EXPECT_EQ(captionOnOpening(), "Statistics of user: Marek");
}

TEST_F(StatisticsFromMenu, OpeningThatFailedLeavesTheCaption)
{
    startLoggedIn();
    std::filesystem::remove(folder / "curUser.dat");
    prompts.expectMessage({.text = "File not found: curUser.dat", .icon = kavo::MessageIcon::Critical});
    QTest::keyClick(&mainWindow(), Qt::Key_F7);
    folder.write("curUser.dat", "Marek\r\n");
    EXPECT_EQ(captionOnOpening(), "Statistics");
}

}  // namespace
