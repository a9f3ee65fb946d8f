// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/results_computation.h"

#include "tests/support/table_text.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

/// A session with 54 rows of the two times given, and the row behind the totals.
Session sessionWith(const std::string& time1, const std::string& time2)
{
    Session session;
    for (int row = 1; row <= kLevels; ++row) {
        session.table.addRow("Track");
        session.table.setText(row, Column::Time1, time1);
        session.table.setText(row, Column::Time2, time2);
    }
    session.table.addRow("TOTAL TIME:");
    session.table.addRow("");
    return session;
}

void setTotals(Session& session, const char* total1, const char* total2)
{
    session.table.setText(kTotalsRow, Column::Time1, total1);
    session.table.setText(kTotalsRow, Column::Time2, total2);
}

TEST(Total, CountsASkippedLevelAsTenMinutes)
{
    Session session = sessionWith("00:10:00", "SKIPPED");
    EXPECT_EQ(totalOf(session.table, Column::Time1), "09:00:00");  // 54 x 10 s
    session.table.setText(3, Column::Time1, "SKIPPED");
    EXPECT_EQ(totalOf(session.table, Column::Time1), "18:50:00");  // 53 x 10 s and 10 minutes
}

TEST(Total, GoesOnFromItsFirstTwoDigitsAboveAHundredMinutes)
{
    // Ten skipped levels are 100:00:00; each further one goes on from "10": the eleventh gives 20 minutes,
    // the nineteenth 100 again. 54 levels are 10 and then 4 full rounds of 9 (levels 11 to 46), 8 more: 90.
    Session session = sessionWith("SKIPPED", "");
    EXPECT_EQ(totalOf(session.table, Column::Time1), "90:00:00");
    session.table.setText(54, Column::Time1, "00:00:07");
    EXPECT_EQ(totalOf(session.table, Column::Time1), "80:00:07");
}

TEST(TotalsRow, ShowsPlayerOnesTotalInHours)
{
    Session session;
    for (int row = 1; row <= kLevels; ++row) {
        session.table.addRow("Track");
        session.table.setText(row, Column::Time1, row <= 15 ? "05:00:00" : "00:00:10");
    }
    EXPECT_EQ(addTotalsRow(session), "1:15:03:90");  // 75 minutes and 39 x 10 hundredths
    EXPECT_EQ(test::texts(session.table, 55), "TOTAL TIME:|1:15:03:90|||||||");
}

TEST(Comparing, MarksTheFasterTimeAndCountsAVictory)
{
    Session session = sessionWith("00:10:00", "00:10:00");
    setTotals(session, "09:00:00", "09:00:00");
    session.table.setText(1, Column::Time2, "00:10:50");
    session.table.setText(2, Column::Time2, "00:09:00");
    session.table.setText(3, Column::Time2, "00:08:00");
    compareColumns(session);
    EXPECT_EQ(test::marked(session, 1), "Track|00:10:00*||00:10:50||00:00:50|||");
    EXPECT_EQ(test::marked(session, 2), "Track|00:10:00||00:09:00*||00:01:00|||");
    EXPECT_EQ(test::marked(session, 4), "Track|00:10:00||00:10:00||No change|||");
    EXPECT_EQ(test::marked(session, 55), "TOTAL TIME:*|09:00:00*|*|09:00:00*|*|No change*|*|*|*");
    EXPECT_EQ(session.state.Victories1, 1);
    EXPECT_EQ(session.state.Victories2, 2);
}

TEST(Comparing, GivesTheFasterTotalAColourAndNoVictory)
{
    Session session = sessionWith("00:10:00", "00:10:00");
    setTotals(session, "09:00:00", "08:59:99");
    compareColumns(session);
    EXPECT_EQ(test::marked(session, 55), "TOTAL TIME:*|09:00:00*|*|08:59:99*{Total}|*|00:00:01*|*|*|*");
    EXPECT_EQ(session.state.Victories1, 0);
    EXPECT_EQ(session.state.Victories2, 0);
    setTotals(session, "08:00:00", "09:00:50");
    compareColumns(session);
    // Sixty seconds are no minute yet.
    EXPECT_EQ(test::marked(session, 55), "TOTAL TIME:*|08:00:00*{Total}|*|09:00:50*{Total}|*|00:60:50*|*|*|*");
}

TEST(Comparing, LetsASkippedLevelOfPlayerOneWin)
{
    Session session = sessionWith("SKIPPED", "02:00:00");
    compareColumns(session);
    EXPECT_EQ(test::marked(session, 1), "Track|SKIPPED*||02:00:00||02:00:00|||");
    EXPECT_EQ(session.state.Victories1, 54);
    EXPECT_EQ(session.state.Victories2, 0);
}

TEST(Comparing, OfASkippedFirstLevelWithOneMinuteStaysInSeconds)
{
    Session session = sessionWith("SKIPPED", "01:00:00");
    compareColumns(session);
    EXPECT_EQ(session.table.text(1, Column::Difference), "00:60:00");
    EXPECT_EQ(session.state.Victories1, 54);
}

TEST(Comparing, CountsASkippedLevelOfPlayerTwoAsTenMinutes)
{
    Session session = sessionWith("09:30:00", "SKIPPED");
    session.table.setText(2, Column::Time1, "10:30:00");
    session.table.setText(3, Column::Time1, "SKIPPED");
    compareColumns(session);
    EXPECT_EQ(test::marked(session, 1), "Track|09:30:00*||SKIPPED||00:30:00|||");
    EXPECT_EQ(test::marked(session, 2), "Track|10:30:00||SKIPPED*||00:30:00|||");
    EXPECT_EQ(test::marked(session, 3), "Track|SKIPPED||SKIPPED||No change|||");
    EXPECT_EQ(session.state.Victories1, 52);
    EXPECT_EQ(session.state.Victories2, 1);
}

TEST(Comparing, TrimsTheTimes)
{
    Session session = sessionWith(" 00:10:00", "00:10:00 ");
    compareColumns(session);
    EXPECT_EQ(session.table.text(1, Column::Difference), "No change");
}

TEST(Comparing, StartsTheVictoriesFromNothing)
{
    Session session = sessionWith("00:10:00", "00:10:00");
    session.state.Victories1 = 9;
    session.state.Victories2 = 9;
    compareColumns(session);
    EXPECT_EQ(session.state.Victories1, 0);
    EXPECT_EQ(session.state.Victories2, 0);
}

TEST(Targets, FillTheSecondColumnByCategory)
{
    const std::vector<std::pair<std::string, std::string>> categories = {
        {"World Record", "a"}, {"World Class", "b"}, {"Professional", "c"}, {"Good", "d"}, {"OK", "e"}};
    for (const auto& [category, target] : categories) {
        Session session = sessionWith("x", "");
        session.CompCategory = category;
        session.state.TargetWR.fill("a");
        session.state.TargetWC.fill("b");
        session.state.TargetPro.fill("c");
        session.state.TargetGood.fill("d");
        session.state.TargetOK.fill("e");
        session.state.TargetGood[55] = "whole set";
        EXPECT_EQ(fillWithTargets(session, "total"), category == "Good" ? "whole set" : target);
        EXPECT_EQ(session.state.Player2Name, category);
        EXPECT_EQ(session.table.text(1, Column::Time2), target);
        EXPECT_EQ(session.table.text(54, Column::Target2), category);
    }
}

TEST(Targets, OfNoSuchCategoryLeaveTheColumnEmpty)
{
    for (const char* category : {"Beginner", "good", ""}) {
        Session session = sessionWith("x", "");
        session.CompCategory = category;
        EXPECT_EQ(fillWithTargets(session, "total"), "total");
        EXPECT_EQ(session.state.Player2Name, "Player2");
        EXPECT_EQ(session.table.text(54, Column::Time2), "");
        EXPECT_EQ(session.table.text(54, Column::Target2), "World Record");
        EXPECT_EQ(session.state.WR2, 54);
    }
}

}  // namespace

}  // namespace kavo
