// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/results_computation.h"

#include "base/text.h"
#include "core/counted_time.h"
#include "core/level_time.h"
#include "core/row_colouring.h"
#include "core/statistics_file.h"

namespace kavo {

namespace {

constexpr Colour kFasterTotal = rgb(200, 100, 200);

/// Where the reading of one player's file puts what it finds.
struct ReadTarget
{
    Column time;
    Column grade;
    Side side;
    const BugTimes& bugTimes;
    std::string& name;
    std::string_view unsetName;  ///< the name that the first time line may replace
    void (*gradeRow)(Session&, int);
};

ReadTarget player1Of(Session& session)
{
    return {Column::Time1, Column::Target1, Side::Player1, session.BugTimes1, session.state.Player1Name,
            "Player1",     ColorTargets1};
}

ReadTarget player2Of(Session& session)
{
    return {Column::Time2, Column::Target2, Side::Player2, session.BugTimes2, session.state.Player2Name,
            "Player2",     ColorTargets2};
}

void placeTime(Session& session, int level, const ReadTarget& target, std::string_view time)
{
    session.table.setText(level, target.time, time);
    target.gradeRow(session, level);
}

void placeSkipped(Session& session, int level, const ReadTarget& target)
{
    session.table.setText(level, target.time, kSkipped);
    session.table.setText(level, target.grade, gradeOf(TargetCategory::Beginner).name);
    ++session.state.counter(target.side, TargetCategory::Beginner);
}

void readLevel(Session& session, int level, const ReadTarget& target, const StatisticsReader& reader)
{
    // The line is cut out before the bug-time is looked at, so a file that ends here fails either way.
    const auto best = reader.bestTime();
    const std::string& bugTime = target.bugTimes[level];
    if (!bugTime.empty()) {
        placeTime(session, level, target, bugTime);
    } else if (!best) {
        placeSkipped(session, level, target);
    } else {
        if (target.name == target.unsetName) target.name = best->driver;
        placeTime(session, level, target, best->time);
    }
}

Difference differenceOn(Session& session, int row)
{
    Difference difference = TimeDifference(trimBlanks(session.table.text(row, Column::Time1)),
                                           trimBlanks(session.table.text(row, Column::Time2)));
    session.table.setText(row, Column::Difference, difference.text);
    session.state.keepDifference(difference);
    return difference;
}

void compareLevel(Session& session, int level)
{
    switch (differenceOn(session, level).faster) {
    case Faster::Neither: break;
    case Faster::First:
        session.table.setBold(level, Column::Time1);
        ++session.state.Victories1;
        break;
    case Faster::Second:
        session.table.setBold(level, Column::Time2);
        ++session.state.Victories2;
        break;
    }
}

void compareTotals(Session& session)
{
    switch (differenceOn(session, kTotalsRow).faster) {
    case Faster::Neither: break;
    case Faster::First: session.table.setColour(kTotalsRow, Column::Time1, kFasterTotal); break;
    case Faster::Second: session.table.setColour(kTotalsRow, Column::Time2, kFasterTotal); break;
    }
    session.table.setRowBold(kTotalsRow);
}

}  // namespace

std::string totalOf(const ResultsTable& table, Column column)
{
    std::string total(kNoTime);
    for (int level = 1; level <= kLevels; ++level) total = AddTime(total, countedTime(table.text(level, column)));
    return total;
}

void readTimesOfPlayer1(Session& session, std::string_view statsText)
{
    const ReadTarget target = player1Of(session);
    StatisticsReader reader(statsText);
    for (int level = 1; level <= kLevels; ++level) {
        session.table.addRow(reader.header());
        readLevel(session, level, target, reader);
    }
}

void readTimesOfPlayer2(Session& session, std::string_view statsText)
{
    const ReadTarget target = player2Of(session);
    StatisticsReader reader(statsText);
    for (int level = 1; level <= kLevels; ++level) {
        static_cast<void>(reader.header());  // the rows have their texts from player 1's file
        readLevel(session, level, target, reader);
    }
}

std::string addTotalsRow(Session& session)
{
    std::string total = FormatTotal(totalOf(session.table, Column::Time1));
    session.table.addRow("TOTAL TIME:");
    session.table.setText(kTotalsRow, Column::Time1, total);
    return total;
}

std::string fillWithTargets(Session& session, const std::string& total1)
{
    const auto category = categoryNamed(session.CompCategory);
    const Grade* grade = category ? &gradeOf(*category) : nullptr;
    if (grade != nullptr && grade->targets == nullptr) grade = nullptr;
    if (grade != nullptr) session.state.Player2Name = grade->name;
    for (int level = 1; level <= kLevels; ++level) {
        if (grade != nullptr) session.table.setText(level, Column::Time2, (session.state.*grade->targets)[level]);
        ColorTargets2(session, level);
    }
    return grade != nullptr ? (session.state.*grade->targets)[kTotalsRow] : total1;
}

void compareColumns(Session& session)
{
    session.state.Victories1 = 0;
    session.state.Victories2 = 0;
    for (int level = 1; level <= kLevels; ++level) compareLevel(session, level);
    compareTotals(session);
}

}  // namespace kavo
