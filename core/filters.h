// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_table.h"

#include <string_view>

namespace kavo {

/// Whose grades or victories a filter looks at: "Filter #1" or "Filter #2".
enum class FilterSide { Player1, Player2 };

/// Blanks every row, the totals row included, whose grade of that player is not the one named.
void filterByGrade(ResultsTable& table, FilterSide side, std::string_view grade);

/// Blanks every row on which the other player is strictly faster; a tie stays for either player.
void filterVictories(ResultsTable& table, FilterSide side);

inline constexpr std::string_view kVictories = "Victories";

/// One of the two by its name in the menu: a grade's, or "Victories".
void applyFilter(ResultsTable& table, FilterSide side, std::string_view name);

}  // namespace kavo
