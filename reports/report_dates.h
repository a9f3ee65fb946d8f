// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <ctime>
#include <locale>
#include <string>

namespace kavo {

/// A moment as reports write it.
struct ReportDates
{
    std::string date;
    std::string dateTime;
    std::string time;
};

/// The moment on the user's clock.
[[nodiscard]] std::tm localTime(std::time_t moment);

/// The locale of the user's system; the plain C locale when the system does not have the one it names.
[[nodiscard]] std::locale userLocale();

/// The moment in local time and in the locale's own formats for dates and times.
[[nodiscard]] ReportDates datesOf(std::time_t moment, const std::locale& locale);

/// The same as the user's system writes them: on Windows as the region settings have it, elsewhere in userLocale().
[[nodiscard]] ReportDates datesOf(std::time_t moment);

}  // namespace kavo
