// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/window_fixture.h"

#include <QAction>

#include <set>

namespace {

using kavo::test::statisticsText;
using kavo::test::targetsText;

class Filters : public kavo::test::ProgramTest
{
protected:
    Filters()
    {
        folder.write("targets.txt", targetsText());
        // One level of each grade, a level without a time, then Professional throughout.
        folder.write("game/stats.txt", statisticsText({"00:10:00 A", "00:20:00 A", "00:30:00 A", "00:40:00 A",
                                                       "00:50:00 A", "00:50:01 A", ""}));
        folder.write("friend/stats.txt", statisticsText({"00:10:00 B", "00:15:00 B", "00:35:00 B"}));
        std::filesystem::remove(folder / "Marek/bugs.dat");
    }

    void choose(const char* entry)
    {
        if (!program) startLoggedIn();
        auto* action = mainWindow().findChild<QAction*>(QLatin1StringView(entry));
        ASSERT_NE(action, nullptr) << entry;
        action->trigger();
    }

    [[nodiscard]] bool isBlank(int row)
    {
        int filled = 0;
        for (int column = 0; column < 9; ++column) filled += cell(row, column).isEmpty() ? 0 : 1;
        EXPECT_TRUE(filled == 0 || filled == 9) << "row " << row;
        return filled == 0;
    }

    [[nodiscard]] std::set<int> rowsLeft()
    {
        std::set<int> rows;
        for (int row = 1; row <= list().model()->rowCount(); ++row)
            if (!isBlank(row)) rows.insert(row);
        return rows;
    }
};

std::set<int> with(std::set<int> rows, int first, int last)
{
    for (int row = first; row <= last; ++row) rows.insert(row);
    return rows;
}

TEST_F(Filters, EachEntryLeavesItsRowsInTheirPlaces)
{
    // Totals: player 1 36:50:01 (ten minutes for level 7), player 2 26:30:00; both worse than the OK target.
    const std::pair<const char*, std::set<int>> cases[] = {
        {"mnuBegin", {6, 7, 55}},
        {"mnuOK", {5}},
        {"mnuGood", {4}},
        {"mnuProf", with({3}, 8, 54)},
        {"mnuWC", {2}},
        {"mnuWR", {1}},
        {"mnuVic", with({1, 3}, 8, 54)},
        {"mnuFiltNone", with({}, 1, 55)},
        {"mnuBegin1", {55}},
        {"mnuOK1", {}},
        {"mnuGood1", {3}},
        {"mnuProf1", with({}, 4, 54)},
        {"mnuWC1", {2}},
        {"mnuWR1", {1}},
        {"mnuVic1", with({1, 2}, 4, 55)},
        {"mnuFiltNone1", with({}, 1, 55)},
    };
    for (const auto& [entry, rows] : cases) {
        choose(entry);
        EXPECT_EQ(list().model()->rowCount(), 55) << entry;
        EXPECT_EQ(rowsLeft(), rows) << entry;
    }
}

TEST_F(Filters, BlankRowsKeepColoursAndBoldMarks)
{
    startLoggedIn();
    const auto looks = [this](int row, int column) {
        const QModelIndex at = index(row, column);
        return std::pair(at.data(Qt::ForegroundRole).value<QColor>(), at.data(Qt::FontRole).value<QFont>().bold());
    };
    std::vector<std::pair<QColor, bool>> before;
    for (int row = 1; row <= 55; ++row)
        for (int column = 0; column < 9; ++column) before.push_back(looks(row, column));
    choose("mnuWR");
    EXPECT_TRUE(isBlank(2));
    EXPECT_EQ(looks(2, 2).first, QColor(255, 95, 5));
    EXPECT_TRUE(looks(55, 0).second);
    std::size_t at = 0;
    for (int row = 1; row <= 55; ++row)
        for (int column = 0; column < 9; ++column) EXPECT_EQ(looks(row, column), before.at(at++)) << row << column;
}

TEST_F(Filters, StartFromTheFilesEachTime)
{
    choose("mnuWR");
    EXPECT_EQ(rowsLeft(), std::set<int>({1}));
    folder.write("game/stats.txt", statisticsText({"00:20:00 A", "00:10:00 A"}));
    choose("mnuWR");
    EXPECT_EQ(rowsLeft(), std::set<int>({2}));
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(rowsLeft(), with({}, 1, 55));
}

TEST_F(Filters, WriteTheLayoutOnTheWayOut)
{
    startLoggedIn();
    std::filesystem::remove(folder / "Marek/view.dat");
    choose("mnuWR");
    EXPECT_TRUE(folder.has("Marek/view.dat"));
}

TEST_F(Filters, GradeComparedWithKeepsTheTotalsRowOfPlayerTwo)
{
    folder.write("Marek/data.ini", "game/stats.txt\r\n3\r\n\r\nGood\r\n");
    choose("mnuGood1");
    EXPECT_FALSE(isBlank(55));
    choose("mnuOK1");
    EXPECT_TRUE(isBlank(55));
}

TEST_F(Filters, WithoutATableDoNothing)
{
    std::filesystem::remove(folder / "game/stats.txt");
    choose("mnuVic");
    EXPECT_EQ(list().model()->rowCount(), 0);
}

TEST_F(Filters, MarkTheColumnOfThePlayerAndSayWhatIsShown)
{
    const auto isMarked = [this](int column) {
        return !list().model()->headerData(column, Qt::Horizontal, Qt::DecorationRole).isNull();
    };
    const auto tip = [this](int column) {
        return list().model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
    };
    startLoggedIn();
    for (int column = 0; column < 9; ++column) EXPECT_FALSE(isMarked(column)) << column;
    choose("mnuWC");
    EXPECT_EQ(header(1), "Marek") << "the text stays";
    for (int column = 0; column < 9; ++column) EXPECT_EQ(isMarked(column), column == 1) << column;
    EXPECT_EQ(tip(1), "Filter #1: World Class. F5 shows all levels. Click to rename");
    choose("mnuVic1");
    for (int column = 0; column < 9; ++column) EXPECT_EQ(isMarked(column), column == 3) << column;
    EXPECT_EQ(tip(3), "Filter #2: Victories. F5 shows all levels. Click to rename");
    EXPECT_EQ(tip(1), "Click to rename");
    choose("mnuFiltNone1");
    EXPECT_FALSE(isMarked(3));
    choose("mnuOK");
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_FALSE(isMarked(1));
}

}  // namespace
