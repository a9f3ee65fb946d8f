// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"

/// Turns the times that the table shows into grades, grade colours, counts and the team's columns. Each
/// works on the texts in the table and only adds to the counters.
namespace kavo {

/// Grades player 1's time on a level's row (1 to 54) into "Target 1".
void ColorTargets1(Session& session, int row);

/// The same for player 2 into "Target 2".
void ColorTargets2(Session& session, int row);

/// Fills and grades the team columns of rows 1 to 55.
void Team2(Session& session);

/// Grades both totals on row 55 and sets the row's bold marks; the selection then rests on that row.
void TTColorTargets(Session& session);

}  // namespace kavo
