// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/columns.h"
#include "core/results_state.h"

namespace kavo {

/// A grade's name in its colour of the user's scheme, as the table shows it.
[[nodiscard]] PrintedCell gradeCell(TargetCategory grade, const ColourSet& colours);

}  // namespace kavo
