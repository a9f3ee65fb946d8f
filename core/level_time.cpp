// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/level_time.h"

#include "base/text.h"
#include "core/counted_time.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <optional>

namespace kavo {

namespace {

constexpr std::size_t kSecondsAt = 4;  // 1-based positions of the two-character fields of MM:SS:HH
constexpr std::size_t kHundredthsAt = 7;
constexpr std::size_t kFieldWidth = 2;

struct TimeFields
{
    std::int32_t minutes;
    std::int32_t seconds;
    std::int32_t hundredths;
};

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// The fields of a text that is MM:SS:HH from end to end; nothing for any other. Nearly all times are, and to take
/// their digits as they stand saves a third of a loading.
std::optional<TimeFields> plainFields(std::string_view time)
{
    if (time.size() != 8 || time[2] != ':' || time[5] != ':') return std::nullopt;
    for (const std::size_t at : std::initializer_list<std::size_t>{0, 1, 3, 4, 6, 7})
        if (!isDigit(time[at])) return std::nullopt;
    const auto field = [time](std::size_t at) { return (time[at] - '0') * 10 + (time[at + 1] - '0'); };
    return TimeFields{field(0), field(3), field(6)};
}

std::string_view fieldAt(std::string_view time, std::size_t position)
{
    return characters(time, position, kFieldWidth);
}

/// The minutes of a total are its first two characters, also when it has more: totals of a hundred minutes and above
/// have always been carried on from the truncated value, and players compare with results saved that way. The
/// hundredths are its last two.
TimeFields fieldsOfTotal(std::string_view total)
{
    if (const auto plain = plainFields(total)) return *plain;
    return {integerOf(firstCharacters(total, kFieldWidth)), integerOf(fieldAt(total, kSecondsAt)),
            integerOf(lastCharacters(total, kFieldWidth))};
}

/// The hundredths of a time that is added stand at a fixed position.
TimeFields fieldsOfAdded(std::string_view time)
{
    if (const auto plain = plainFields(time)) return *plain;
    return {integerOf(firstCharacters(time, kFieldWidth)), integerOf(fieldAt(time, kSecondsAt)),
            integerOf(fieldAt(time, kHundredthsAt))};
}

void appendTwoDigits(std::string& text, double number)
{
    constexpr double kThreeDigits = 100;
    if (number >= 0 && number < kThreeDigits) {
        const int whole = static_cast<int>(number);
        if (whole == number) {
            text += static_cast<char>('0' + whole / 10);
            text += static_cast<char>('0' + whole % 10);
            return;
        }
    }
    text += decimal(number);
}

std::string timeText(double minutes, double seconds, double hundredths)
{
    std::string text;
    appendTwoDigits(text, minutes);
    text += ':';
    appendTwoDigits(text, seconds);
    text += ':';
    appendTwoDigits(text, hundredths);
    return text;
}

}  // namespace

bool isTimeOfLevel(std::string_view text)
{
    return plainFields(text).has_value();
}

std::string twoDigits(double number)
{
    std::string text;
    appendTwoDigits(text, number);
    return text;
}

std::string AddTime(std::string_view a, std::string_view b)
{
    const TimeFields total = fieldsOfTotal(a);
    const TimeFields added = fieldsOfAdded(b);
    std::int32_t hundredths = total.hundredths + added.hundredths;
    std::int32_t seconds = total.seconds + added.seconds;
    std::int32_t minutes = total.minutes + added.minutes;
    const std::int32_t wholeSeconds = hundredths / 100;
    hundredths -= 100 * wholeSeconds;
    seconds += wholeSeconds;
    const std::int32_t wholeMinutes = seconds / 60;
    seconds -= 60 * wholeMinutes;
    minutes += wholeMinutes;
    return timeText(minutes, seconds, hundredths);
}

double HundredthsOf(std::string_view time)
{
    if (const auto plain = plainFields(time)) return (plain->minutes * 60 + plain->seconds) * 100 + plain->hundredths;
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
    result.text = timeText(result.minutes, result.seconds, result.hundredths);
    return result;
}

}  // namespace kavo
