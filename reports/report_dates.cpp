#include "reports/report_dates.h"

#include <iterator>
#include <sstream>
#include <stdexcept>

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

}  // namespace kavo
