// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/page/charts.h"
#include "insight/page/markup.h"
#include "insight/timeline.h"

#include <ctime>
#include <vector>

namespace kavo {

/// Where the points of a timeline are between the first one and `now`: 0 to less than 1.
[[nodiscard]] std::vector<double> placesInTime(const Timeline& timeline, std::time_t now);

/// Totals and grades over time, as drawings and as a table, once two states are remembered; before that, how to
/// get there.
void writeProgress(Markup& page, const Timeline& timeline, std::time_t now);

/// A level's times over time, with what has been gained since the first one in words. Nothing where nothing has
/// changed.
void writeLevelProgress(Markup& page, const Timeline& timeline, const std::vector<double>& places, int level);

/// What has been gained on a level from its first remembered time to its last one.
[[nodiscard]] std::optional<Hundredths> gainOn(const Timeline& timeline, int level);

}  // namespace kavo
