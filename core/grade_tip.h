// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"

#include <string>
#include <string_view>

namespace kavo {

/// What a time is worth, in words: "World Class. 0.67 s to World Record (00:30:50)". The grade is named as
/// the table shows it; then comes the least that is missing to a better one (of two grades with the same
/// target the better one). A record is followed by its target alone; a text that is no time, or has no
/// better target, by nothing. Empty without a grade.
[[nodiscard]] std::string gradeTip(const ResultsState& state, int row, std::string_view time, std::string_view grade);

}  // namespace kavo
