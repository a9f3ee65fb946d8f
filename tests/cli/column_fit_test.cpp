// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/column_fit.h"

#include <gtest/gtest.h>

#include <array>

namespace kavo {

namespace {

constexpr std::array kShrink = {Shrink::Names, Shrink::Heading, Shrink::Grades};

std::vector<PrintedRow> rowsOf(const std::vector<std::vector<const char*>>& texts)
{
    std::vector<PrintedRow> rows;
    for (const auto& row : texts) {
        rows.emplace_back();
        for (const char* text : row) rows.back().push_back({.text = text});
    }
    return rows;
}

const std::vector<PrintedRow> kTable = rowsOf({{"Level", "Anastasia Petrova", "Target 1"},
                                               {"8, Windy Steppes", "00:30:50", "World Record"},
                                               {"9, Frog Pond", "00:31:00", "OK"}});

std::string fitted(std::vector<PrintedRow> rows, std::size_t width)
{
    fitColumns(rows, kShrink, width);
    return formatColumns(std::move(rows), Colours::None);
}

// Columns of 16, 17 and 12 with two gaps of 2: 49.
TEST(FitColumns, LeavesATableThatFits)
{
    EXPECT_EQ(fitted(kTable, 49), formatColumns(kTable, Colours::None));
    EXPECT_EQ(fitted(kTable, 1000), formatColumns(kTable, Colours::None));
}

TEST(FitColumns, ShortensTheWidestNamesFirst)
{
    EXPECT_EQ(fitted(kTable, 42),
              "Level          Anastasia Pe…  Target 1\n"
              "8, Windy Ste…  00:30:50       World Record\n"
              "9, Frog Pond   00:31:00       OK\n");
}

TEST(FitColumns, ShortensGradesWhenNamesAreShortEnough)
{
    EXPECT_EQ(fitted(kTable, 27),
              "Level     Anastas…  Tar…t 1\n"
              "8, Wind…  00:30:50  Wor…ord\n"
              "9, Frog…  00:31:00  OK\n");
}

TEST(FitColumns, NeverShortensATime)
{
    // 8 + 8 + 4 and the gaps: as narrow as the table gets.
    for (const std::size_t width : {24U, 23U, 1U, 0U})
        EXPECT_EQ(fitted(kTable, width),
                  "Level     Anastas…  Ta…1\n"
                  "8, Wind…  00:30:50  Wo…d\n"
                  "9, Frog…  00:31:00  OK\n");
}

TEST(FitColumns, GoesByTheColumnsOfTheTerminal)
{
    EXPECT_EQ(fitted(rowsOf({{"Level", "日本の友達の名前", "G"}, {"1", "00:30:50", "OK"}}), 21),
              "Level  日本の友…  G\n"
              "1      00:30:50   OK\n");
}

TEST(FitColumns, TakesControlCharactersForBlanks)
{
    EXPECT_EQ(fitted(rowsOf({{"Level", "A\x1b[31mna\x9B", "G"}, {"1", "00:30:50", "OK"}}), 80),
              "Level  A [31mna›  G\n"
              "1      00:30:50   OK\n");
}

TEST(FitColumns, LeavesAnEmptyTable)
{
    EXPECT_EQ(fitted({}, 10), "");
}

}  // namespace

}  // namespace kavo
