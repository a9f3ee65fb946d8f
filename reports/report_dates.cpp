// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/report_dates.h"

#include <iterator>
#include <sstream>
#include <stdexcept>

#ifdef _WIN32
#include <array>
#include <string_view>
#include <windows.h>
#endif

namespace kavo {

namespace {

/// `format` is a conversion of strftime: 'x' a date, 'X' a time, 'c' both.
std::string formatted(const std::tm& parts, const std::locale& locale, char format)
{
    std::ostringstream stream;
    stream.imbue(locale);
    std::use_facet<std::time_put<char>>(locale).put(std::ostreambuf_iterator<char>(stream), stream, ' ', &parts,
                                                    format);
    return stream.str();
}

#ifdef _WIN32

SYSTEMTIME systemTime(const std::tm& parts)
{
    constexpr int kFirstYear = 1900;
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(parts.tm_year + kFirstYear);
    time.wMonth = static_cast<WORD>(parts.tm_mon + 1);
    time.wDay = static_cast<WORD>(parts.tm_mday);
    time.wHour = static_cast<WORD>(parts.tm_hour);
    time.wMinute = static_cast<WORD>(parts.tm_min);
    time.wSecond = static_cast<WORD>(parts.tm_sec);
    return time;
}

/// What `format` (the system's functions for dates and times) makes of a moment, in UTF-8.
template <typename Format>
std::string inRegionsForm(Format format)
{
    std::array<wchar_t, 256> text{};
    const int length = format(text.data(), static_cast<int>(text.size()));
    const std::wstring_view shown(text.data(), length > 0 ? static_cast<std::size_t>(length) - 1 : 0);
    std::string utf8(4 * shown.size(), '\0');
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, shown.data(), static_cast<int>(shown.size()), utf8.data(),
                                           static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(size));
    return utf8;
}

#endif

}  // namespace

std::tm localTime(std::time_t moment)
{
    std::tm parts{};
#ifdef _WIN32
    ::localtime_s(&parts, &moment);
#else
    ::localtime_r(&moment, &parts);
#endif
    return parts;
}

std::locale userLocale()
{
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic();
    }
}

ReportDates datesOf(std::time_t moment, const std::locale& locale)
{
    const std::tm parts = localTime(moment);
    return {.date = formatted(parts, locale, 'x'),
            .dateTime = formatted(parts, locale, 'c'),
            .time = formatted(parts, locale, 'X')};
}

ReportDates datesOf(std::time_t moment)
{
#ifdef _WIN32
    const SYSTEMTIME time = systemTime(localTime(moment));
    ReportDates dates;
    dates.date = inRegionsForm([&time](wchar_t* text, int size) {
        return ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, size, nullptr);
    });
    dates.time = inRegionsForm([&time](wchar_t* text, int size) {
        return ::GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, nullptr, text, size);
    });
    dates.dateTime = dates.date + " " + dates.time;
    return dates;
#else
    return datesOf(moment, userLocale());
#endif
}

}  // namespace kavo
