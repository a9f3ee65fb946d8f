// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/results_table.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

TEST(ResultsTable, StartsWithTheDesignedHeaders)
{
    const ResultsTable table;
    std::string headers;
    for (int i = 0; i < kColumns; ++i) headers += table.header(static_cast<Column>(i)) + "|";
    EXPECT_EQ(headers, "Level|Time 1|Target 1|Time 2|Target 2|Difference|Team|Target|Author|");
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.selectedRow(), 0);
}

TEST(ResultsTable, ReadsARowThatDoesNotExistAsEmpty)
{
    ResultsTable table;
    table.addRow("1, Track");
    for (const int row : {-1, 0, 2, 55}) {
        EXPECT_EQ(table.text(row, Column::Level), "");
        EXPECT_FALSE(table.cell(row, Column::Level).bold);
        table.setText(row, Column::Level, "x");
        table.setBold(row, Column::Level);
        table.setColour(row, Column::Level, 1);
        table.setRowBold(row);
        table.blankRow(row);
    }
    EXPECT_EQ(table.rowCount(), 1);
    EXPECT_EQ(table.text(1, Column::Level), "1, Track");
    EXPECT_FALSE(table.cell(1, Column::Level).bold);
}

TEST(ResultsTable, ChangesTheNamedCellOnly)
{
    ResultsTable table;
    table.addRow("a");
    table.addRow("b");
    table.setBold(1, Column::Time1);
    table.setColour(2, Column::Target2, 255);
    for (int row = 1; row <= 2; ++row) {
        for (int i = 0; i < kColumns; ++i) {
            const auto column = static_cast<Column>(i);
            EXPECT_EQ(table.cell(row, column).bold, row == 1 && column == Column::Time1);
            EXPECT_EQ(table.cell(row, column).colour.has_value(), row == 2 && column == Column::Target2);
        }
    }
    table.setRowBold(2);
    EXPECT_TRUE(table.cell(2, Column::Author).bold);
    EXPECT_FALSE(table.cell(1, Column::Author).bold);
}

TEST(ResultsTable, KeepsMarksOfABlankedRow)
{
    ResultsTable table;
    table.addRow("a");
    table.setText(1, Column::Author, "x");
    table.setColour(1, Column::Author, 5);
    table.setRowBold(1);
    table.blankRow(1);
    EXPECT_EQ(table.rowCount(), 1);
    EXPECT_EQ(table.text(1, Column::Level), "");
    EXPECT_EQ(table.text(1, Column::Author), "");
    EXPECT_EQ(table.cell(1, Column::Author).colour, 5);
    EXPECT_TRUE(table.cell(1, Column::Level).bold);
}

TEST(ResultsTable, LosesItsSelectionWithTheRow)
{
    ResultsTable table;
    table.removeLastRow();
    EXPECT_EQ(table.rowCount(), 0);
    table.addRow("a");
    table.addRow("b");
    table.selectRow(1);
    table.removeLastRow();
    EXPECT_EQ(table.selectedRow(), 1);
    table.removeLastRow();
    EXPECT_EQ(table.selectedRow(), 0);
}

TEST(ResultsTable, ClearsRowsHeadersAndSelection)
{
    ResultsTable table;
    table.addRow("a");
    table.setHeader(Column::Team, "Dust Devils");
    table.selectRow(1);
    table.clear();
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.header(Column::Team), "Team");
    EXPECT_EQ(table.selectedRow(), 0);
}

TEST(FasterTime, IsTheSecondOnATie)
{
    ResultsTable table;
    table.addRow("a");
    const auto set = [&table](const char* first, const char* second) {
        table.setText(1, Column::Time1, first);
        table.setText(1, Column::Time2, second);
    };
    set("00:10:00", "00:10:01");
    EXPECT_TRUE(isFirstFaster(table, 1));
    EXPECT_EQ(fasterTime(table, 1), "00:10:00");
    set("00:10:00", "00:10:00");
    EXPECT_FALSE(isFirstFaster(table, 1));
    set("SKIPPED", "99:59:99");
    EXPECT_EQ(fasterTime(table, 1), "99:59:99");
    set("99:59:99", "SKIPPED");
    EXPECT_EQ(fasterTime(table, 1), "99:59:99");
    set("00:10:00", "");
    EXPECT_EQ(fasterTime(table, 1), "");
}

}  // namespace

}  // namespace kavo
