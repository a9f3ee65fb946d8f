// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/level_time.h"

#include "base/text.h"
#include "core/counted_time.h"

#include <cmath>
#include <cstdint>

namespace kavo {

namespace {

constexpr std::size_t kSecondsAt = 4;  // 1-based positions of the two-character fields of MM:SS:HH
constexpr std::size_t kHundredthsAt = 7;
constexpr std::size_t kFieldWidth = 2;

std::string_view fieldAt(std::string_view time, std::size_t position)
{
    return characters(time, position, kFieldWidth);
}

}  // namespace

std::string twoDigits(double number)
{
    std::string text = decimal(number);
    if (text.size() == 1) text.insert(0, 1, '0');
    return text;
}

std::string AddTime(std::string_view a, std::string_view b)
{
    // The minutes of a total are its first two characters, also when it has more: totals of a hundred
    // minutes and above have always been carried on from the truncated value, and players compare
    // with results saved that way. The hundredths of a total are its last two characters, those of the
    // added time stand at a fixed position.
    std::int32_t hundredths = integerOf(lastCharacters(a, kFieldWidth)) + integerOf(fieldAt(b, kHundredthsAt));
    std::int32_t seconds = integerOf(fieldAt(a, kSecondsAt)) + integerOf(fieldAt(b, kSecondsAt));
    std::int32_t minutes = integerOf(firstCharacters(a, kFieldWidth)) + integerOf(firstCharacters(b, kFieldWidth));
    const std::int32_t wholeSeconds = hundredths / 100;
    hundredths -= 100 * wholeSeconds;
    seconds += wholeSeconds;
    const std::int32_t wholeMinutes = seconds / 60;
    seconds -= 60 * wholeMinutes;
    minutes += wholeMinutes;
    return twoDigits(minutes) + ":" + twoDigits(seconds) + ":" + twoDigits(hundredths);
}

double HundredthsOf(std::string_view time)
{
    const double minutes = numberOf(firstCharacters(time, kFieldWidth));
    const double seconds = numberOf(fieldAt(time, kSecondsAt));
    return (minutes * 60 + seconds) * 100 + numberOf(lastCharacters(time, kFieldWidth));
}

std::string FormatTotal(std::string_view total)
{
    // Only the first two characters are looked at: 123:00:00 counts as 12 minutes and stays.
    const std::int32_t minutes = integerOf(firstCharacters(total, kFieldWidth));
    if (minutes < 60) return std::string(total);
    const std::int32_t hours = minutes / 60;
    return decimal(hours) + ":" + decimal(minutes % 60) + ":" + std::string(fromCharacter(total, kSecondsAt));
}

Difference TimeDifference(std::string_view first, std::string_view second)
{
    Difference result;
    if (first == second) return result;
    // Only the second time is replaced: a first "SKIPPED" counts as 0 and so wins the level. Players'
    // victories have been counted this way from the start.
    double distance = HundredthsOf(countedTime(second)) - HundredthsOf(first);
    result.faster = distance < 0 ? Faster::Second : Faster::First;
    distance = std::fabs(distance);
    if (distance < 100) {
        result.hundredths = distance;
    } else {
        result.seconds = std::trunc(std::nearbyint(distance) / 100);
        result.hundredths = distance - 100 * result.seconds;
        // Strictly greater: a difference of sixty seconds is shown as 00:60:xx, not as a minute.
        if (result.seconds > 60) result.minutes = std::trunc(result.seconds / 60);
        result.seconds -= 60 * result.minutes;
    }
    result.text = twoDigits(result.minutes) + ":" + twoDigits(result.seconds) + ":" + twoDigits(result.hundredths);
    return result;
}

}  // namespace kavo
