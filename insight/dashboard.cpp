// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/dashboard.h"

#include "base/text.h"
#include "core/results_computation.h"

#include <utility>

namespace kavo {

namespace {

Rival rivalOf(const Session& session)
{
    if (trimBlanks(session.CompPath) == kCompareWithTargets) return Rival::Targets;
    for (int level = 1; level <= kLevels; ++level)
        if (!session.table.text(level, Column::Time2).empty()) return Rival::Player;
    return Rival::None;
}

Column timeColumn(Side side)
{
    switch (side) {
    case Side::Player1: return Column::Time1;
    case Side::Player2: return Column::Time2;
    case Side::Team: return Column::Team;
    }
    return Column::Time1;
}

/// Without a second column the table has no row of totals; player 1's is the same sum.
std::string totalOn(const Session& session, Side side)
{
    if (session.table.rowCount() >= kTotalsRow) return session.table.text(kTotalsRow, timeColumn(side));
    return FormatTotal(totalOf(session.table, timeColumn(side)));
}

DashboardSide sideOf(const Session& session, Side side)
{
    DashboardSide result;
    result.name = session.state.name(side);
    result.total = totalOn(session, side);
    for (const Grade& grade : grades()) result.grades[grade.category] = session.state.counter(side, grade.category);
    result.victories = session.state.victories(side);
    if (side != Side::Team) result.next = improvementsOf(session, side);
    return result;
}

/// The table marks the faster of the two times.
Faster aheadOn(const ResultsTable& table, int level)
{
    if (table.cell(level, Column::Time1).bold) return Faster::First;
    return table.cell(level, Column::Time2).bold ? Faster::Second : Faster::Neither;
}

DashboardLevel levelOf(const Session& session, int level)
{
    const ResultsTable& table = session.table;
    DashboardLevel result;
    result.level = level;
    result.name = table.text(level, Column::Level);
    result.players = {DashboardTime{table.text(level, Column::Time1), table.text(level, Column::Target1)},
                      DashboardTime{table.text(level, Column::Time2), table.text(level, Column::Target2)}};
    result.difference = table.text(level, Column::Difference);
    result.ahead = aheadOn(table, level);
    result.scale = timeScaleOf(session.state, level);
    result.next = nextGoal(session.state, level, result.players[0].time);
    return result;
}

}  // namespace

Dashboard dashboardOf(const Session& session, Timeline timeline, std::time_t now)
{
    Dashboard dashboard;
    dashboard.now = now;
    dashboard.user = session.UserName;
    dashboard.colours = session.colours;
    dashboard.rival = rivalOf(session);
    dashboard.sides = {sideOf(session, Side::Player1), sideOf(session, Side::Player2), sideOf(session, Side::Team)};
    for (int level = 1; level <= kLevels; ++level) dashboard.levels.push_back(levelOf(session, level));
    dashboard.timeline = std::move(timeline);
    return dashboard;
}

}  // namespace kavo
