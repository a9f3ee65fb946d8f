// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/row_colouring.h"

#include "base/text.h"
#include "core/level_time.h"

namespace kavo {

namespace {

constexpr std::size_t kLongTotal = 9;  // characters from which text order says nothing about a total

/// Writes the grade that a time reaches, with its colour; Beginner leaves the cell's colour as it is.
const Grade& showGrade(Session& session, int row, Column column, std::string_view time)
{
    const Grade& grade = gradeReached(session.state, row, time);
    session.table.setText(row, column, grade.name);
    if (grade.colour != nullptr) session.table.setColour(row, column, session.colours.*grade.colour);
    return grade;
}

void gradeLevel(Session& session, int row, Side side, Column time, Column target)
{
    const Grade& grade = showGrade(session, row, target, session.table.text(row, time));
    ++session.state.counter(side, grade.category);
}

void gradeTotal(Session& session, Column time, Column target)
{
    const std::string& total = session.table.text(kTotalsRow, time);
    showGrade(session, kTotalsRow, target, total);
    // By length alone, so a total in hours is a Beginner's too. The team's total has no such rule.
    if (countCharacters(total) < kLongTotal) return;
    session.table.setText(kTotalsRow, target, gradeOf(TargetCategory::Beginner).name);
    session.table.setColour(kTotalsRow, target, session.colours.ColText);
}

}  // namespace

void ColorTargets1(Session& session, int row)
{
    gradeLevel(session, row, Side::Player1, Column::Time1, Column::Target1);
}

void ColorTargets2(Session& session, int row)
{
    gradeLevel(session, row, Side::Player2, Column::Time2, Column::Target2);
}

void Team2(Session& session)
{
    ResultsTable& table = session.table;
    std::string total;
    for (int row = 1; row <= kLevels; ++row) {
        const bool isFirst = isFirstFaster(table, row);
        table.setText(row, Column::Team, fasterTime(table, row));
        table.setText(row, Column::Author, isFirst ? session.state.Player1Name : session.state.Player2Name);
        // A level that both skipped adds nothing here: the ten minutes are the players' totals' alone.
        total = AddTime(total, table.text(row, Column::Team));
    }
    table.setText(kTotalsRow, Column::Author, "Team");  // the word, whatever the team is called
    table.setText(kTotalsRow, Column::Team, total);
    for (int row = 1; row <= kLevels; ++row) gradeLevel(session, row, Side::Team, Column::Team, Column::Target);
    showGrade(session, kTotalsRow, Column::Target, total);
}

void TTColorTargets(Session& session)
{
    gradeTotal(session, Column::Time1, Column::Target1);
    gradeTotal(session, Column::Time2, Column::Target2);
    session.table.setRowBold(kTotalsRow);
    if (!session.CompCategory.empty()) session.table.setText(kTotalsRow, Column::Target2, session.CompCategory);
    session.table.selectRow(kTotalsRow);
}

}  // namespace kavo
