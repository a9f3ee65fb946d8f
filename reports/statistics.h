// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"

#include <array>
#include <string>

namespace kavo {

inline constexpr int kStatisticsBars = 7;

/// What the bars show from left to right: levels per grade from Beginner to World Record, then the
/// victories.
[[nodiscard]] std::array<int, kStatisticsBars> statisticsFigures(const ResultsState& state, Side side);

/// The same figures as eight lines of text, best grade first, CR LF between the lines.
[[nodiscard]] std::string statisticsText(const ResultsState& state, Side side);

}  // namespace kavo
