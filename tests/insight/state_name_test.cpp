// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/state_name.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

constexpr std::time_t kMoment = 1795257991;  // 21 November 2026, 10:46:31 in UTC

TEST(StateName, IsTheUtcTime)
{
    EXPECT_EQ(stateName(kMoment), "20261121T104631Z.txt");
    EXPECT_EQ(stateName(0), "19700101T000000Z.txt");
    EXPECT_EQ(stateName(951782399), "20000228T235959Z.txt");
    EXPECT_EQ(stateName(951782400), "20000229T000000Z.txt");
}

TEST(StateName, StaysWithinWhatItsFormCanSay)
{
    EXPECT_EQ(stateName(-1), "19700101T000000Z.txt");
    EXPECT_EQ(stateName(kLastMoment), "99991231T235959Z.txt");
    EXPECT_EQ(stateName(kLastMoment + 1), "99991231T235959Z.txt");
}

TEST(MomentOfState, IsTheMomentThatTheNameSays)
{
    EXPECT_EQ(momentOfState("20261121T104631Z.txt"), kMoment);
    EXPECT_EQ(momentOfState("20000229T000000Z.txt"), 951782400);
    EXPECT_EQ(momentOfState("99991231T235959Z.txt"), kLastMoment);
}

TEST(MomentOfState, IsNoneForAnyOtherName)
{
    for (const char* name :
         {"", ".txt", "20261121T104631Z", "20261121T104631Z.TXT", "20261121t104631Z.txt", "20261121T104631.txt",
          "20261121T104631Z.txt.bak", "x20261121T104631Z.txt", "20261321T104631Z.txt", "20261131T104631Z.txt",
          "20261121T244631Z.txt", "20261121T106031Z.txt", "20261121T104660Z.txt", "2026112aT104631Z.txt",
          "19691231T235959Z.txt", "20270229T000000Z.txt", "../20261121T104631Z.txt", "index"})
        EXPECT_EQ(momentOfState(name), std::nullopt) << name;
}

/// The clock on the user's wall is at UTC+2 without summer time.
class FindState : public ::testing::Test
{
protected:
    static std::string find(std::string_view when)
    {
        const std::vector<std::string> names = {"20261120T215959Z.txt", "20261120T220000Z.txt", "20261121T104631Z.txt",
                                                "20261121T220000Z.txt"};
        return findState(names, when).value_or("none");
    }

private:
    test::TimeZone m_zone{"KAVO-2"};
};

TEST_F(FindState, TakesANameWithOrWithoutItsEnding)
{
    EXPECT_EQ(find("20261121T104631Z.txt"), "20261121T104631Z.txt");
    EXPECT_EQ(find("20261120T220000Z"), "20261120T220000Z.txt");
    EXPECT_EQ(find("20261121T104632Z"), "none");
    EXPECT_EQ(find("../20261121T104631Z"), "none");
}

TEST_F(FindState, CountsBackFromTheLatest)
{
    EXPECT_EQ(find("latest"), "20261121T220000Z.txt");
    EXPECT_EQ(find("latest~0"), "20261121T220000Z.txt");
    EXPECT_EQ(find("latest~3"), "20261120T215959Z.txt");
    for (const char* when : {"latest~4", "latest~", "latest~-1", "latest~x", "latest~1x", "latest1", "Latest",
                             "latest~99999999999999999999"})
        EXPECT_EQ(find(when), "none") << when;
    EXPECT_EQ(findState({}, "latest"), std::nullopt);
}

TEST_F(FindState, TakesADayOfTheUsersClock)
{
    // The 21st begins at 22:00:00 UTC of the 20th there.
    EXPECT_EQ(find("2026-11-20"), "20261120T215959Z.txt");
    EXPECT_EQ(find("2026-11-21"), "20261121T104631Z.txt");
    EXPECT_EQ(find("2026-11-22"), "20261121T220000Z.txt");
}

TEST_F(FindState, GivesTheStateThatStoodOnADayWithoutAnyNewOne)
{
    EXPECT_EQ(find("2027-06-01"), "20261121T220000Z.txt");
    EXPECT_EQ(find("2026-11-19"), "none");
    EXPECT_EQ(find("1969-11-19"), "none");
}

TEST_F(FindState, TakesAMoment)
{
    EXPECT_EQ(find("2026-11-21 12:46:30"), "20261120T220000Z.txt");
    EXPECT_EQ(find("2026-11-21 12:46:31"), "20261121T104631Z.txt");
    EXPECT_EQ(find("2026-11-21T12:46:31"), "20261121T104631Z.txt");
    EXPECT_EQ(find("2026-11-21 12:46"), "20261121T104631Z.txt");  // the whole minute
    EXPECT_EQ(find("2026-11-21 12:45"), "20261120T220000Z.txt");
}

TEST_F(FindState, RefusesWhatIsNoDate)
{
    for (const char* when : {"", "2026-11-31", "2026-13-01", "2026-11-2", "2026-11-211", "21.11.2026",
                             "2026-11-21 24:00", "2026-11-21 12:60", "2026-11-21 12", "2026-11-21x12:46", "yesterday"})
        EXPECT_EQ(find(when), "none") << when;
}

}  // namespace
}  // namespace kavo
