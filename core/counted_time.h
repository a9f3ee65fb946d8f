// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/level_time.h"

#include <string_view>

namespace kavo {

/// What a level's time counts in a player's total: "SKIPPED" is ten minutes.
[[nodiscard]] constexpr std::string_view countedTime(std::string_view time)
{
    return time == kSkipped ? kSkippedTime : time;
}

}  // namespace kavo
