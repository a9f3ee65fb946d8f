// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Times as numbers, where the table has them as texts. Whole hundredths of a second, so that sums and
/// gaps are exact.
namespace kavo {

using Hundredths = std::int64_t;

/// Value of a time of the form MM:SS:HH (six digits, whatever separates them); nothing for a text that is
/// no time, such as "SKIPPED", an empty target or a bug-time with letters.
[[nodiscard]] std::optional<Hundredths> exactTime(std::string_view time);

/// What a level adds to a player's total: a skipped level ten minutes, a text that is no time what the
/// addition of times makes of it.
[[nodiscard]] Hundredths countedHundredths(std::string_view time);

/// Seconds with two decimals: 21 is "0.21", 6021 is "60.21".
[[nodiscard]] std::string secondsText(Hundredths value);

/// A sum of times in the form of player 1's total, minutes below sixty as MM:SS:HH, from there on in hours
/// (451234 is "1:15:12:34"). Unlike a total in the table it is right above a hundred minutes, too.
[[nodiscard]] std::string exactTotalText(Hundredths total);

}  // namespace kavo
