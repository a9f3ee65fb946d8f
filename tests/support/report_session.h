// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/text.h"
#include "core/session.h"
#include "reports/report_lines.h"

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace kavo::test {

/// Local time 2026-03-07 14:05:09, the moment of the golden reports.
inline std::time_t reportMoment()
{
    std::tm parts{};
    parts.tm_year = 126;
    parts.tm_mon = 2;
    parts.tm_mday = 7;
    parts.tm_hour = 14;
    parts.tm_min = 5;
    parts.tm_sec = 9;
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}

/// A session as a loading leaves it, plain enough to reckon with: every level is "1, Track" to
/// "54, Track" with 00:30:00 against 00:40:00, targets 10, 20, 30, 40 and 50 seconds; the totals row has
/// 27:00:00 against 36:00:00, targets 20, 25, 30, 40 and 50 minutes and is selected.
inline Session reportSession()
{
    Session session;
    ResultsState& state = session.state;
    for (int row = 1; row <= kTotalsRow; ++row) {
        const bool isTotal = row == kTotalsRow;
        session.table.addRow(isTotal ? "TOTAL TIME:" : std::to_string(row) + ", Track");
        session.table.setText(row, Column::Time1, isTotal ? "27:00:00" : "00:30:00");
        session.table.setText(row, Column::Target1, "Professional");
        session.table.setText(row, Column::Time2, isTotal ? "36:00:00" : "00:40:00");
        session.table.setText(row, Column::Target2, "Good");
        session.table.setText(row, Column::Difference, isTotal ? "09:00:00" : "00:10:00");
        session.table.setText(row, Column::Team, isTotal ? "27:00:00" : "00:30:00");
        session.table.setText(row, Column::Target, "Professional");
        session.table.setText(row, Column::Author, isTotal ? "Team" : "Alice");
        state.TargetWR[row] = isTotal ? "20:00:00" : "00:10:00";
        state.TargetWC[row] = isTotal ? "25:00:00" : "00:20:00";
        state.TargetPro[row] = isTotal ? "30:00:00" : "00:30:00";
        state.TargetGood[row] = isTotal ? "40:00:00" : "00:40:00";
        state.TargetOK[row] = isTotal ? "50:00:00" : "00:50:00";
    }
    session.table.selectRow(kTotalsRow);
    state.Player1Name = "Alice";
    state.Player2Name = "Bob";
    state.TeamName = "Dust Devils";
    return session;
}

/// Different numbers in all counters: 1 to 6 for player 1 (best grade first), 11 to 16 for player 2, 21 to
/// 26 for the team; 30 and 17 victories.
inline void countUp(ResultsState& state)
{
    int number = 0;
    for (const Side side : {Side::Player1, Side::Player2, Side::Team}) {
        for (const Grade& grade : grades()) state.counter(side, grade.category) = ++number;
        number += 4;
    }
    state.Victories1 = 30;
    state.Victories2 = 17;
}

class RecordedReport final : public ReportLines
{
public:
    void write(std::string_view text) override { (bytes += text) += kLineEnd; }

    /// The lines without their CR LF; what follows the last one is a line, too.
    [[nodiscard]] std::vector<std::string> lines() const
    {
        std::vector<std::string> result;
        std::size_t from = 0;
        for (std::size_t at = bytes.find(kLineEnd); at != std::string::npos; at = bytes.find(kLineEnd, from)) {
            result.push_back(bytes.substr(from, at - from));
            from = at + kLineEnd.size();
        }
        result.push_back(bytes.substr(from));
        return result;
    }

    std::string bytes;
};

}  // namespace kavo::test
