// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/one_based.h"

namespace kavo {

inline constexpr int kLevels = 54;     ///< built-in levels of the game, numbered from 1
inline constexpr int kTotalsRow = 55;  ///< the whole set: last row of the table, last entry of the targets

}  // namespace kavo
