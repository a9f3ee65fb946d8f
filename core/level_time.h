// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

/// A LevelTime is a text MM:SS:HH: minutes, seconds, hundredths of a second, two digits each. Times are
/// kept, added and compared as texts; a text that is no time counts as 0 where a number is needed.
namespace kavo {

inline constexpr std::string_view kSkipped = "SKIPPED";       ///< a level that the player never finished
inline constexpr std::string_view kSkippedTime = "10:00:00";  ///< what it counts in a sum
inline constexpr std::string_view kNoTime = "00:00:00";       ///< the start of every running total
inline constexpr std::string_view kNoChange = "No change";    ///< the difference of two equal times

/// Whether a text is of the form MM:SS:HH, digit by digit.
[[nodiscard]] bool isTimeOfLevel(std::string_view text);

/// Sum of a running total and a time. The two operands are not read alike: see the definition.
[[nodiscard]] std::string AddTime(std::string_view a, std::string_view b);

/// Value of a time in hundredths of a second.
[[nodiscard]] double HundredthsOf(std::string_view time);

/// A total of sixty minutes or more in hours, without padding: 75:12:34 is 1:15:12:34.
[[nodiscard]] std::string FormatTotal(std::string_view total);

enum class Faster { Neither, First, Second };

/// How far two times are apart.
struct Difference
{
    double minutes = 0;
    double seconds = 0;
    double hundredths = 0;
    std::string text{kNoChange};  ///< MM:SS:HH without a sign, or "No change"
    Faster faster = Faster::Neither;
};

/// Two digits at least: 7 is "07".
[[nodiscard]] std::string twoDigits(double number);

[[nodiscard]] Difference TimeDifference(std::string_view first, std::string_view second);

}  // namespace kavo
