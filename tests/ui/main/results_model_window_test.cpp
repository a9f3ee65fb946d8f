// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/window_fixture.h"
#include "ui/main/results_model.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

using kavo::test::statisticsText;
using kavo::test::targetsText;

/// Targets of 10, 20, 30, 40 and 50 seconds. Player 1 drives 0:19.33 on level 1 and nothing on level 2,
/// player 2 0:35 and 0:30; on all others both drive 0:30.
class ResultsModel : public kavo::test::ProgramTest
{
protected:
    ResultsModel()
    {
        folder.write("targets.txt", targetsText());
        folder.write("game/stats.txt", statisticsText({"00:19:33 Ann", ""}));
        folder.write("friend/stats.txt", statisticsText({"00:35:00 Bob"}));
        std::filesystem::remove(folder / "Marek/bugs.dat");
        startLoggedIn();
    }

    QString tip(int row, int column) { return index(row, column).data(Qt::ToolTipRole).toString(); }
    QString description(int row, int column)
    {
        return index(row, column).data(Qt::AccessibleDescriptionRole).toString();
    }

    /// The tool tip that a cell shows when the pointer rests on it.
    QString shownTip(int row, int column)
    {
        list().scrollTo(index(row, column));
        const QPoint at = list().visualRect(index(row, column)).center();
        QHelpEvent event(QEvent::ToolTip, at, list().viewport()->mapToGlobal(at));
        QApplication::sendEvent(list().viewport(), &event);
        const QString text = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        return text;
    }
};

TEST_F(ResultsModel, TellsOfEachTimeAndGradeWhatIsMissingToTheNext)
{
    for (const int column : {1, 2, 6, 7}) EXPECT_EQ(tip(1, column), "World Class. 9.33 s to World Record (00:10:00)");
    for (const int column : {3, 4}) EXPECT_EQ(tip(1, column), "Good. 5.00 s to Professional (00:30:00)");
    for (const int column : {1, 2}) EXPECT_EQ(tip(2, column), "Beginner");
    for (const int column : {0, 5, 8}) EXPECT_EQ(tip(1, column), "");
}

TEST_F(ResultsModel, TellsAScreenReaderWhatBoldLettersMean)
{
    EXPECT_EQ(description(1, 1), "faster, World Class. 9.33 s to World Record (00:10:00)");
    EXPECT_EQ(description(1, 3), "Good. 5.00 s to Professional (00:30:00)");
    EXPECT_EQ(description(1, 6), "World Class. 9.33 s to World Record (00:10:00)") << "bold on every row";
    EXPECT_EQ(description(3, 1), "Professional. 10.00 s to World Class (00:20:00)") << "a tie";
    EXPECT_EQ(description(1, 0), "");
    // Totals: 0:19.33 + 10:00 + 52 times 0:30 against 0:35 + 53 times 0:30.
    EXPECT_EQ(cell(55, 1), "36:19:33");
    EXPECT_EQ(cell(55, 3), "27:05:00");
    EXPECT_TRUE(description(55, 3).startsWith("faster, Beginner")) << qPrintable(description(55, 3));
    EXPECT_TRUE(description(55, 1).startsWith("Beginner")) << qPrintable(description(55, 1));
}

TEST_F(ResultsModel, BlankedRowsSayNothing)
{
    mainWindow().filter(kavo::FilterSide::Player1, "World Class");
    EXPECT_EQ(tip(1, 1), "World Class. 9.33 s to World Record (00:10:00)");
    for (int column = 0; column < 9; ++column) {
        EXPECT_EQ(tip(3, column), "");
        EXPECT_EQ(description(3, column), "");
    }
}

TEST_F(ResultsModel, CutCellShowsItsTextInItsToolTip)
{
    list().setColumnWidth(0, 300);
    list().setColumnWidth(2, 300);
    EXPECT_EQ(shownTip(8, 0), "");
    EXPECT_TRUE(shownTip(1, 2).contains(">World Class. 9.33 s"));
    list().setColumnWidth(0, 30);
    list().setColumnWidth(2, 30);
    EXPECT_TRUE(shownTip(8, 0).contains("Steppes")) << qPrintable(shownTip(8, 0));
    EXPECT_TRUE(shownTip(1, 2).contains("World Class<br>World Class. 9.33 s")) << qPrintable(shownTip(1, 2));
}

TEST_F(ResultsModel, ShowsANameWithMarkupInAToolTipAsItIs)
{
    folder.write("Marek/names.dat", "<b>bold</b>\r\nBob\r\nDuo\r\n");
    QTest::keyClick(&list(), Qt::Key_F5);
    list().setFixedWidth(400);
    QCoreApplication::processEvents();  // else the last column would fill the wide list
    list().setColumnWidth(8, 30);
    EXPECT_TRUE(shownTip(1, 8).contains("&lt;b&gt;bold&lt;/b&gt;")) << qPrintable(shownTip(1, 8));
}

TEST_F(ResultsModel, TellsWhatElseIsKnownOfPlayerOnesTimes)
{
    std::vector<std::string> asked;
    mainWindow().tellOfTimes([&asked](int level, std::string_view time) {
        asked.push_back(std::to_string(level) + " " + std::string(time));
        return level == 1 ? "Best ever: 00:18:00" : "";
    });
    const QString grade = "World Class. 9.33 s to World Record (00:10:00)";
    for (const int column : {1, 2}) EXPECT_EQ(tip(1, column), grade + "\nBest ever: 00:18:00");
    for (const int column : {6, 7}) EXPECT_EQ(tip(1, column), grade) << "the team's";
    EXPECT_EQ(tip(1, 3), "Good. 5.00 s to Professional (00:30:00)") << "player 2's";
    for (const int column : {0, 5, 8}) EXPECT_EQ(tip(1, column), "");
    EXPECT_EQ(tip(2, 1), "Beginner");
    EXPECT_EQ(description(1, 1), "faster, " + grade + ", Best ever: 00:18:00");
    EXPECT_TRUE(tip(55, 1).startsWith("Beginner"));
    EXPECT_EQ(asked, (std::vector<std::string>{"1 00:19:33", "1 00:19:33", "2 SKIPPED", "1 00:19:33"}));
}

TEST_F(ResultsModel, ShowsEachNoteOnALineOfItsOwnAndMarkupAsItIs)
{
    mainWindow().tellOfTimes([](int, std::string_view) { return "Best ever: 00<18>00"; });
    list().setColumnWidth(1, 300);
    EXPECT_TRUE(shownTip(1, 1).contains("(00:10:00)<br>Best ever: 00&lt;18&gt;00</p>")) << qPrintable(shownTip(1, 1));
}

}  // namespace
