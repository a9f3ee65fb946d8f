#include "reports/report_dates.h"

#include "tests/support/report_session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace kavo {
namespace {

/// Sets a variable of the environment for one test.
class Environment final
{
public:
    Environment(const char* name, const char* value) : m_name(name)
    {
        if (const char* before = std::getenv(name)) m_before = before;
        ::setenv(name, value, 1);
    }

    ~Environment()
    {
        if (m_before)
            ::setenv(m_name, m_before->c_str(), 1);
        else
            ::unsetenv(m_name);
    }

    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

TEST(ReportDates, PlainLocaleHasThePlainFormats)
{
    const ReportDates dates = datesOf(test::reportMoment(), std::locale::classic());
    EXPECT_EQ(dates.date, "03/07/26");
    EXPECT_EQ(dates.time, "14:05:09");
    EXPECT_EQ(dates.dateTime, "Sat Mar  7 14:05:09 2026");
}

TEST(ReportDates, LocaleComesFromTheUsersSystem)
{
    const Environment all("LC_ALL", "C.UTF-8");
    EXPECT_EQ(userLocale().name(), "C.UTF-8");
}

TEST(ReportDates, UnknownLocaleIsThePlainOne)
{
    const Environment all("LC_ALL", "xx_XX.none");
    EXPECT_EQ(userLocale(), std::locale::classic());
    EXPECT_EQ(datesOf(test::reportMoment()).date, "03/07/26");
}

}  // namespace
}  // namespace kavo
