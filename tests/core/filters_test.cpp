// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/filters.h"

#include "core/levels.h"
#include "tests/support/table_text.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

constexpr const char* kBlank = "||||||||";

/// 55 rows; rows 1 to 5 and the totals row as given below, the others equal.
ResultsTable table()
{
    ResultsTable result;
    const auto set = [&result](int row, const char* time1, const char* grade1, const char* time2, const char* grade2) {
        result.setText(row, Column::Time1, time1);
        result.setText(row, Column::Target1, grade1);
        result.setText(row, Column::Time2, time2);
        result.setText(row, Column::Target2, grade2);
        result.setText(row, Column::Author, "x");
    };
    for (int row = 1; row <= kTotalsRow; ++row) {
        result.addRow("row " + std::to_string(row));
        set(row, "00:30:00", "Good", "00:30:00", "Good");
    }
    set(1, "00:10:00", "World Class", "00:20:00", "OK");
    set(2, "00:20:00", "OK", "00:10:00", "World Class");
    set(3, "SKIPPED", "Beginner", "00:10:00", "World Class");
    set(4, "00:10:00", "World Class", "SKIPPED", "Beginner");
    set(5, "SKIPPED", "Beginner", "SKIPPED", "Beginner");
    set(55, "27:00:00", "World Class", "26:00:00", "Good");
    return result;
}

/// Numbers of the rows that a filter leaves, of those that differ: 1 to 6 and the totals row.
std::string keptBy(FilterSide side, std::string_view name)
{
    ResultsTable filtered = table();
    applyFilter(filtered, side, name);
    EXPECT_EQ(filtered.rowCount(), 55);
    std::string kept;
    for (const int row : {1, 2, 3, 4, 5, 6, 55}) {
        const std::string texts = test::texts(filtered, row);
        if (texts != kBlank) {
            EXPECT_EQ(texts, test::texts(table(), row));
            kept += std::to_string(row) + " ";
        }
    }
    return kept;
}

TEST(GradeFilter, KeepsTheRowsOfTheGrade)
{
    EXPECT_EQ(keptBy(FilterSide::Player1, "World Class"), "1 4 55 ");
    EXPECT_EQ(keptBy(FilterSide::Player2, "World Class"), "2 3 ");
    EXPECT_EQ(keptBy(FilterSide::Player1, "Good"), "6 ");
    EXPECT_EQ(keptBy(FilterSide::Player2, "Good"), "6 55 ");
    EXPECT_EQ(keptBy(FilterSide::Player1, "Beginner"), "3 5 ");
    EXPECT_EQ(keptBy(FilterSide::Player2, "Beginner"), "4 5 ");
    EXPECT_EQ(keptBy(FilterSide::Player1, "OK"), "2 ");
    EXPECT_EQ(keptBy(FilterSide::Player1, "Professional"), "");
    EXPECT_EQ(keptBy(FilterSide::Player1, "World Record"), "");
}

TEST(VictoriesFilter, BlanksWhatTheOtherPlayerWonAndKeepsTies)
{
    // A skipped level loses here to any time, whoever got the victory.
    EXPECT_EQ(keptBy(FilterSide::Player1, "Victories"), "1 4 5 6 ");
    EXPECT_EQ(keptBy(FilterSide::Player2, "Victories"), "2 3 5 6 55 ");
}

TEST(Filter, LeavesColoursAndBoldMarks)
{
    ResultsTable filtered = table();
    filtered.setColour(1, Column::Target1, 255);
    filtered.setRowBold(1);
    filterByGrade(filtered, FilterSide::Player1, "Good");
    EXPECT_EQ(test::texts(filtered, 1), kBlank);
    EXPECT_EQ(filtered.cell(1, Column::Target1).colour, 255);
    EXPECT_TRUE(filtered.cell(1, Column::Time1).bold);
}

TEST(Filter, IsContentWithAShortTable)
{
    ResultsTable none;
    applyFilter(none, FilterSide::Player1, "Good");
    applyFilter(none, FilterSide::Player2, "Victories");
    EXPECT_EQ(none.rowCount(), 0);
}

}  // namespace

}  // namespace kavo
