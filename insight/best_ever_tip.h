// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/best_ever.h"

#include <string>
#include <string_view>

namespace kavo {

/// For a tool tip over player 1's time of a level: "Best ever: 00:19:88 (11/21/26)", with the day on which that was
/// first seen as the user's system writes dates. Empty unless it was better than the time shown; a level that is
/// skipped now counts as slower than any time.
[[nodiscard]] std::string bestEverTip(const BestEver& best, int level, std::string_view time);

}  // namespace kavo
