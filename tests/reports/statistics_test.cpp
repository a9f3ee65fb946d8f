// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/statistics.h"

#include "tests/support/report_session.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using Figures = std::array<int, kStatisticsBars>;

TEST(Statistics, BarsGoFromBeginnerToWorldRecordAndThenVictories)
{
    ResultsState state;
    test::countUp(state);
    EXPECT_EQ(statisticsFigures(state, Side::Player1), (Figures{6, 5, 4, 3, 2, 1, 30}));
    EXPECT_EQ(statisticsFigures(state, Side::Player2), (Figures{16, 15, 14, 13, 12, 11, 17}));
}

TEST(Statistics, TeamHasItsOwnGradesAndTheVictoriesOfBoth)
{
    ResultsState state;
    test::countUp(state);
    EXPECT_EQ(statisticsFigures(state, Side::Team), (Figures{26, 25, 24, 23, 22, 21, 47}));
}

TEST(Statistics, TextHasItsPaddingsAndTabs)
{
    ResultsState state;
    test::countUp(state);
    EXPECT_EQ(statisticsText(state, Side::Player2),
              "Your statistics: \r\n"
              "World Records:\t11\r\n"
              "World Class:\t12\r\n"
              "Professional:\t13\r\n"
              "Good:        \t14\r\n"
              "OK:           \t15\r\n"
              "Beginner: \t16\r\n"
              "Victories:  \t17");
}

TEST(Statistics, WithoutResultsEveryNumberIsZero)
{
    EXPECT_EQ(statisticsFigures({}, Side::Team), (Figures{}));
    EXPECT_EQ(statisticsText({}, Side::Team),
              "Your statistics: \r\nWorld Records:\t0\r\nWorld Class:\t0\r\nProfessional:\t0\r\nGood:        \t0\r\n"
              "OK:           \t0\r\nBeginner: \t0\r\nVictories:  \t0");
}

}  // namespace
}  // namespace kavo
