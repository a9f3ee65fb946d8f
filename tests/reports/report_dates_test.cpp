// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/report_dates.h"

#include "tests/support/environment.h"
#include "tests/support/plain_region.h"
#include "tests/support/report_session.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

#ifdef _WIN32

TEST(ReportDates, HaveTheRegionsForms)
{
    const test::RegionsForm date(LOCALE_SSHORTDATE, L"dd.MM.yyyy");
    const test::RegionsForm time(LOCALE_STIMEFORMAT, L"HH'ч'mm-ss");
    const ReportDates dates = datesOf(test::reportMoment());
    EXPECT_EQ(dates.date, "07.03.2026");
    EXPECT_EQ(dates.time, "14ч05-09");
    EXPECT_EQ(dates.dateTime, "07.03.2026 14ч05-09");
}

#else  // where a variable names the region

TEST(ReportDates, PlainLocaleHasThePlainFormats)
{
    const ReportDates dates = datesOf(test::reportMoment(), std::locale::classic());
    EXPECT_EQ(dates.date, "03/07/26");
    EXPECT_EQ(dates.time, "14:05:09");
    EXPECT_EQ(dates.dateTime, "Sat Mar  7 14:05:09 2026");
}

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
