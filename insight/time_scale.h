// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "insight/exact_time.h"

#include <array>
#include <optional>

namespace kavo {

/// The targets of a level from OK to World Record.
using TimeScale = std::array<Hundredths, kCategories - 1>;

/// Nothing where a target is no time, or where the record is none (it is not faster than OK).
[[nodiscard]] std::optional<TimeScale> timeScaleOf(const ResultsState& targets, int level);

/// Where a time is on the scale: 0 at OK, 1 at the world record, below 0 and above 1 beyond them.
[[nodiscard]] double placeOn(const TimeScale& scale, Hundredths time);

}  // namespace kavo
