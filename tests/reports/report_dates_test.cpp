// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/report_dates.h"

#include "tests/support/environment.h"
#include "tests/support/report_session.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <array>
#include <windows.h>
#endif

namespace kavo {
namespace {

TEST(ReportDates, PlainLocaleHasThePlainFormats)
{
    const ReportDates dates = datesOf(test::reportMoment(), std::locale::classic());
    EXPECT_EQ(dates.date, "03/07/26");
    EXPECT_EQ(dates.time, "14:05:09");
    EXPECT_EQ(dates.dateTime, "Sat Mar  7 14:05:09 2026");
}

#ifdef _WIN32

/// A form of the user's region, as long as this lives.
class RegionsForm final
{
public:
    RegionsForm(LCTYPE kind, const wchar_t* form) : m_kind(kind)
    {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, m_before.data(), static_cast<int>(m_before.size()));
        ::SetLocaleInfoW(LOCALE_USER_DEFAULT, kind, form);
    }
    ~RegionsForm() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, m_kind, m_before.data()); }
    RegionsForm(const RegionsForm&) = delete;
    RegionsForm& operator=(const RegionsForm&) = delete;

private:
    LCTYPE m_kind;
    std::array<wchar_t, 100> m_before{};
};

TEST(ReportDates, HaveTheRegionsForms)
{
    const RegionsForm date(LOCALE_SSHORTDATE, L"dd.MM.yyyy");
    const RegionsForm time(LOCALE_STIMEFORMAT, L"HH'ч'mm-ss");
    const ReportDates dates = datesOf(test::reportMoment());
    EXPECT_EQ(dates.date, "07.03.2026");
    EXPECT_EQ(dates.time, "14ч05-09");
    EXPECT_EQ(dates.dateTime, "07.03.2026 14ч05-09");
}

#else  // where a variable names the region

TEST(ReportDates, LocaleComesFromTheUsersSystem)
{
    const test::EnvironmentValue all("LC_ALL", "C.UTF-8");
    EXPECT_EQ(userLocale().name(), "C.UTF-8");
}

TEST(ReportDates, UnknownLocaleIsThePlainOne)
{
    const test::EnvironmentValue all("LC_ALL", "xx_XX.none");
    EXPECT_EQ(userLocale(), std::locale::classic());
    EXPECT_EQ(datesOf(test::reportMoment()).date, "03/07/26");
}

#endif

}  // namespace
}  // namespace kavo
