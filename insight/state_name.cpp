// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/state_name.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace kavo {

namespace {

constexpr std::string_view kSuffix = ".txt";
constexpr std::string_view kNameForm = "ddddddddTddddddZ";
constexpr std::string_view kLatest = "latest";

/// A moment as people write it, without a clock that it belongs to.
struct WrittenMoment
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    [[nodiscard]] std::chrono::year_month_day date() const
    {
        return std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) /
               std::chrono::day(static_cast<unsigned>(day));
    }

    [[nodiscard]] bool isPossible() const { return date().ok() && hour < 24 && minute < 60 && second < 60; }
};

/// Whether a text has a form, in which "d" stands for any digit and everything else for itself.
bool hasForm(std::string_view text, std::string_view form)
{
    return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                      [](char c, char wanted) { return wanted == 'd' ? c >= '0' && c <= '9' : c == wanted; });
}

/// The number of the digits from `position` on.
int numberAt(std::string_view text, std::size_t position, std::size_t length)
{
    int number = 0;
    std::from_chars(text.data() + position, text.data() + position + length, number);
    return number;
}

/// The end of the day, minute or second that the user has written.
std::optional<WrittenMoment> endOfWritten(std::string_view when)
{
    const bool hasDate = hasForm(when.substr(0, 10), "dddd-dd-dd");
    if (!hasDate) return std::nullopt;
    WrittenMoment moment{.year = numberAt(when, 0, 4),
                         .month = numberAt(when, 5, 2),
                         .day = numberAt(when, 8, 2),
                         .hour = 23,
                         .minute = 59,
                         .second = 59};
    const std::string_view time = when.substr(10);
    if (time.empty()) return moment;
    if (time.front() != ' ' && time.front() != 'T') return std::nullopt;
    const bool hasSeconds = hasForm(time.substr(1), "dd:dd:dd");
    if (!hasSeconds && !hasForm(time.substr(1), "dd:dd")) return std::nullopt;
    moment.hour = numberAt(time, 1, 2);
    moment.minute = numberAt(time, 4, 2);
    if (hasSeconds) moment.second = numberAt(time, 7, 2);
    return moment;
}

std::optional<std::time_t> onTheUsersClock(const WrittenMoment& moment)
{
    if (!moment.isPossible()) return std::nullopt;
    std::tm parts{};
    parts.tm_year = moment.year - 1900;
    parts.tm_mon = moment.month - 1;
    parts.tm_mday = moment.day;
    parts.tm_hour = moment.hour;
    parts.tm_min = moment.minute;
    parts.tm_sec = moment.second;
    parts.tm_isdst = -1;  // the system knows
    return std::mktime(&parts);
}

std::optional<std::string> stepsBeforeLatest(const std::vector<std::string>& names, std::string_view steps)
{
    std::size_t number = 0;
    if (!steps.empty()) {
        if (steps.front() != '~') return std::nullopt;
        const char* end = steps.data() + steps.size();
        const auto [stopped, error] = std::from_chars(steps.data() + 1, end, number);
        if (error != std::errc{} || stopped != end) return std::nullopt;
    }
    if (number >= names.size()) return std::nullopt;
    return names[names.size() - 1 - number];
}

std::optional<std::string> lastUpTo(const std::vector<std::string>& names, std::time_t moment)
{
    if (moment < 0) return std::nullopt;
    const auto behind = std::upper_bound(names.begin(), names.end(), stateName(moment));
    if (behind == names.begin()) return std::nullopt;
    return *std::prev(behind);
}

}  // namespace

std::string stateName(std::time_t moment)
{
    using namespace std::chrono;
    const sys_seconds time{seconds(std::clamp<std::time_t>(moment, 0, kLastMoment))};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "%04d%02u%02uT%02d%02d%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return std::string(name.data()).append(kSuffix);
}

std::optional<std::time_t> momentOfState(std::string_view name)
{
    using namespace std::chrono;
    if (!name.ends_with(kSuffix)) return std::nullopt;
    name.remove_suffix(kSuffix.size());
    if (!hasForm(name, kNameForm)) return std::nullopt;
    const WrittenMoment moment{.year = numberAt(name, 0, 4),
                               .month = numberAt(name, 4, 2),
                               .day = numberAt(name, 6, 2),
                               .hour = numberAt(name, 9, 2),
                               .minute = numberAt(name, 11, 2),
                               .second = numberAt(name, 13, 2)};
    if (!moment.isPossible() || moment.year < 1970) return std::nullopt;
    const seconds sinceStart = sys_days(moment.date()).time_since_epoch() + hours(moment.hour) +
                               minutes(moment.minute) + seconds(moment.second);
    return static_cast<std::time_t>(sinceStart.count());
}

std::optional<std::string> findState(const std::vector<std::string>& names, std::string_view when)
{
    std::string name(when);
    if (!name.ends_with(kSuffix)) name.append(kSuffix);
    if (std::binary_search(names.begin(), names.end(), name)) return name;
    if (when.starts_with(kLatest)) return stepsBeforeLatest(names, when.substr(kLatest.size()));
    const auto written = endOfWritten(when);
    const auto moment = written ? onTheUsersClock(*written) : std::nullopt;
    return moment ? lastUpTo(names, *moment) : std::nullopt;
}

}  // namespace kavo
