// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/exact_time.h"

#include "base/text.h"
#include "core/counted_time.h"

#include <array>
#include <cstddef>

namespace kavo {

namespace {

constexpr Hundredths kSecond = 100;
constexpr Hundredths kMinute = 60 * kSecond;
constexpr Hundredths kHour = 60 * kMinute;
constexpr std::size_t kTimeLength = 8;

struct Digit
{
    std::size_t position;  ///< in the text, 0-based
    Hundredths worth;
};

constexpr std::array<Digit, 6> kDigits = {
    {{0, 10 * kMinute}, {1, kMinute}, {3, 10 * kSecond}, {4, kSecond}, {6, 10}, {7, 1}}};

std::string padded(Hundredths number)
{
    const std::string text = std::to_string(number);
    return text.size() == 1 ? "0" + text : text;
}

}  // namespace

std::optional<Hundredths> exactTime(std::string_view time)
{
    if (time.size() != kTimeLength) return std::nullopt;
    Hundredths value = 0;
    for (const Digit& digit : kDigits) {
        const char c = time[digit.position];
        if (c < '0' || c > '9') return std::nullopt;
        value += (c - '0') * digit.worth;
    }
    return value;
}

Hundredths countedHundredths(std::string_view time)
{
    const std::string_view counted = countedTime(time);
    if (const auto value = exactTime(counted)) return *value;
    const auto field = [counted](std::size_t first) { return Hundredths{integerOf(characters(counted, first, 2))}; };
    return field(1) * kMinute + field(4) * kSecond + field(7);
}

std::string secondsText(Hundredths value)
{
    if (value < 0) return "-" + secondsText(-value);
    return std::to_string(value / kSecond) + "." + padded(value % kSecond);
}

std::string exactTotalText(Hundredths total)
{
    if (total < 0) return "-" + exactTotalText(-total);
    const std::string end = padded(total / kSecond % 60) + ":" + padded(total % kSecond);
    if (total < kHour) return padded(total / kMinute) + ":" + end;
    return std::to_string(total / kHour) + ":" + std::to_string(total / kMinute % 60) + ":" + end;
}

}  // namespace kavo
