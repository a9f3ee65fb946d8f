// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"

#include <string>
#include <string_view>

/// From the times in the table to totals, differences and victories.
namespace kavo {

/// The sum of a time column over the 54 levels; a skipped level counts as ten minutes.
[[nodiscard]] std::string totalOf(const ResultsTable& table, Column column);

/// Puts the level texts, times and grades of player 1's file into the table, one new row per level. A
/// bug-time stands in for the file's time. Throws RunTimeError(InvalidCall) where the file ends early.
void readTimesOfPlayer1(Session& session, std::string_view statsText);

/// The same for player 2's file, into the rows that are there.
void readTimesOfPlayer2(Session& session, std::string_view statsText);

/// Adds the totals row with player 1's total, in hours from sixty minutes on. Returns that total.
std::string addTotalsRow(Session& session);

/// Fills player 2's column with the targets of the session's category. Returns the column's total:
/// the whole set's target, or `total1` when the category names no grade with targets.
[[nodiscard]] std::string fillWithTargets(Session& session, const std::string& total1);

/// Differences, victories and the marks of the faster time on all 55 rows.
void compareColumns(Session& session);

}  // namespace kavo
