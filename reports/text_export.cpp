// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/text_export.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/level_time.h"
#include "reports/report_file.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kavo {

namespace {

constexpr std::size_t kNameWidth = 24;
constexpr std::size_t kGradeWidth = 20;
constexpr std::string_view kTeamGap = "     ";

// No TAB before the team columns, on purpose: the rows have one there, the header never had.
constexpr std::string_view kHeader =
    "Level name              Time1   \t"
    "Target1             Time2   \t"
    "Target2             Difference  "
    "Team Time    Target\r\n";

constexpr ByGrade<std::string_view> kCountLabels = {
    {"World Records: ", "World Class: ", "Professional: ", "Good: ", "OK: ", "Beginner: "}};

/// Levels per grade.
using Counts = ByGrade<std::int32_t>;

/// What the report works out about the team on its way through the rows.
struct TeamRecord
{
    std::string total;  ///< without ten minutes for a skipped level, on purpose: the table's totals have them
    Counts counts{};    ///< over all 55 rows, on purpose: the totals row is one of them
};

/// The level's name in its column, with at least one blank behind it.
std::string nameCell(std::string_view name)
{
    if (countCharacters(name) >= kNameWidth) throw RunTimeError(Failure::InvalidCall);
    return cutOrPad(name, kNameWidth);
}

/// Takes a row into the team's record; returns the team's time on it.
std::string countTeam(TeamRecord& team, const Session& session, int row)
{
    const std::string& time = fasterTime(session.table, row);
    ++team.counts[gradeReached(session.state, row, time).category];
    if (row == kTotalsRow) return team.total;
    team.total = AddTime(team.total, time);
    return time;
}

std::string rowLine(const Session& session, int row, const std::string& teamTime)
{
    const ResultsTable& table = session.table;
    std::string line = nameCell(table.text(row, Column::Level));
    line.append(table.text(row, Column::Time1)).append("\t");
    line.append(cutOrPad(table.text(row, Column::Target1), kGradeWidth));
    line.append(table.text(row, Column::Time2)).append("\t");
    line.append(cutOrPad(table.text(row, Column::Target2), kGradeWidth));
    line.append(table.text(row, Column::Difference)).append("\t");
    line.append(teamTime).append(kTeamGap).append(gradeReached(session.state, row, teamTime).name);
    return line.append(kLineEnd);
}

Counts countsOf(const ResultsState& state, Side side)
{
    Counts counts{};
    for (const Grade& grade : grades()) counts[grade.category] = state.counter(side, grade.category);
    return counts;
}

void writeBlock(ReportLines& report, const ResultsState& state, Side side, const Counts& counts)
{
    report.write(kLineEnd);
    report.write(state.name(side));
    for (const Grade& grade : grades())
        report.write(std::string(kCountLabels[grade.category]) + std::to_string(counts[grade.category]));
    report.write("Victories: " + std::to_string(state.victories(side)));
}

}  // namespace

void writeTextReport(const Session& session, ReportLines& report)
{
    report.write(kHeader);
    TeamRecord team;
    for (int row = 1; row <= kTotalsRow; ++row) {
        const std::string teamTime = countTeam(team, session, row);
        report.write(rowLine(session, row, teamTime));
    }
    writeBlock(report, session.state, Side::Player1, countsOf(session.state, Side::Player1));
    writeBlock(report, session.state, Side::Player2, countsOf(session.state, Side::Player2));
    writeBlock(report, session.state, Side::Team, team.counts);
}

void exportText(const Session& session, const std::filesystem::path& path)
{
    ReportFile file(path);
    writeTextReport(session, file);
    file.close();
}

}  // namespace kavo
