// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/filters.h"

#include "core/levels.h"

namespace kavo {

void filterByGrade(ResultsTable& table, FilterSide side, std::string_view grade)
{
    const Column column = side == FilterSide::Player1 ? Column::Target1 : Column::Target2;
    for (int row = 1; row <= kTotalsRow; ++row)
        if (table.text(row, column) != grade) table.blankRow(row);
}

void filterVictories(ResultsTable& table, FilterSide side)
{
    const Column own = side == FilterSide::Player1 ? Column::Time1 : Column::Time2;
    const Column other = side == FilterSide::Player1 ? Column::Time2 : Column::Time1;
    for (int row = 1; row <= kTotalsRow; ++row)
        if (table.text(row, other) < table.text(row, own)) table.blankRow(row);
}

void applyFilter(ResultsTable& table, FilterSide side, std::string_view name)
{
    if (name == kVictories)
        filterVictories(table, side);
    else
        filterByGrade(table, side, name);
}

}  // namespace kavo
