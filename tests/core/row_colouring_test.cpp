// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/row_colouring.h"

#include "tests/support/table_text.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using test::counts;
using test::marked;

Session sessionWith(const std::string& time1, const std::string& time2)
{
    Session session;
    ResultsState& state = session.state;
    state.Player1Name = "Ann";
    state.Player2Name = "Bob";
    state.TeamName = "Dust Devils";
    state.TargetWR.fill("00:10:00");
    state.TargetWC.fill("00:20:00");
    state.TargetPro.fill("00:30:00");
    state.TargetGood.fill("00:40:00");
    state.TargetOK.fill("00:50:00");
    for (int row = 1; row <= kLevels; ++row) {
        session.table.addRow("Track");
        session.table.setText(row, Column::Time1, time1);
        session.table.setText(row, Column::Time2, time2);
    }
    session.table.addRow("TOTAL TIME:");
    return session;
}

TEST(Colouring, OfALevelNamesCountsAndColoursTheGrade)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"00:10:00", "World Record{WR}"}, {"00:20:00", "World Class{WC}"}, {"00:30:00", "Professional{Pro}"},
        {"00:40:00", "Good{Good}"},       {"00:50:00", "OK{OK}"},          {"00:50:01", "Beginner"}};
    Session session = sessionWith("", "");
    int row = 0;
    for (const auto& [time, grade] : cases) {
        ++row;
        session.table.setText(row, Column::Time1, time);
        session.table.setText(row, Column::Time2, time);
        ColorTargets1(session, row);
        EXPECT_EQ(marked(session, row), "Track|" + time + "|" + grade + "|" + time + "|||||");
        ColorTargets2(session, row);
        EXPECT_EQ(marked(session, row), "Track|" + time + "|" + grade + "|" + time + "|" + grade + "||||");
    }
    EXPECT_EQ(counts(session.state, Side::Player1), "1 1 1 1 1 1");
    EXPECT_EQ(counts(session.state, Side::Player2), "1 1 1 1 1 1");
    EXPECT_EQ(counts(session.state, Side::Team), "0 0 0 0 0 0");
}

TEST(Colouring, CountsTwiceWhenRunTwice)
{
    Session session = sessionWith("00:10:00", "00:60:00");
    for (int i = 0; i < 2; ++i) {
        ColorTargets1(session, 1);
        ColorTargets2(session, 1);
    }
    EXPECT_EQ(session.state.WR1, 2);
    EXPECT_EQ(session.state.Beg2, 2);
}

TEST(Colouring, LeavesABeginnersColourAsItWas)
{
    Session session = sessionWith("00:50:01", "");
    session.table.setColour(1, Column::Target1, session.colours.ColWR);
    ColorTargets1(session, 1);
    EXPECT_EQ(marked(session, 1), "Track|00:50:01|Beginner{WR}||||||");
}

TEST(Team, IsTheFasterOfTheTwoAndPlayerTwoOnATie)
{
    Session session = sessionWith("00:30:00", "00:30:00");
    const auto set = [&session](int row, const char* first, const char* second) {
        session.table.setText(row, Column::Time1, first);
        session.table.setText(row, Column::Time2, second);
    };
    set(2, "00:09:00", "00:10:00");
    set(3, "SKIPPED", "00:50:00");
    set(4, "00:20:00", "SKIPPED");
    set(5, "SKIPPED", "SKIPPED");
    Team2(session);
    EXPECT_EQ(marked(session, 1), "Track|00:30:00||00:30:00|||00:30:00|Professional{Pro}|Bob");
    EXPECT_EQ(marked(session, 2), "Track|00:09:00||00:10:00|||00:09:00|World Record{WR}|Ann");
    EXPECT_EQ(marked(session, 3), "Track|SKIPPED||00:50:00|||00:50:00|OK{OK}|Bob");
    EXPECT_EQ(marked(session, 4), "Track|00:20:00||SKIPPED|||00:20:00|World Class{WC}|Ann");
    EXPECT_EQ(marked(session, 5), "Track|SKIPPED||SKIPPED|||SKIPPED|Beginner|Bob");
    EXPECT_EQ(counts(session.state, Side::Team), "1 1 50 0 1 1");
    // 50 x 30 s + 9 s + 50 s + 20 s; the level that both skipped adds nothing.
    EXPECT_EQ(marked(session, 55), "TOTAL TIME:||||||26:19:00|Beginner|Team");
}

TEST(Team, HasItsTotalGradedByThePlainRuleHoweverLong)
{
    // 54 x 99 minutes: each sum goes on from two digits: 99, then 198, 19 + 99 = 118, 11 + 99 = 110, and
    // from there 11 + 99 = 110 for good.
    Session session = sessionWith("99:00:00", "99:00:00");
    session.state.TargetWR[55] = "111:00:00";
    Team2(session);
    EXPECT_EQ(marked(session, 55), "TOTAL TIME:||||||110:00:00|World Record{WR}|Team");
}

TEST(Totals, AreGradedWithTheWholeSetsTargetsAndNotCounted)
{
    Session session = sessionWith("", "");
    session.state.TargetGood[55] = "30:00:00";
    session.state.TargetOK[55] = "40:00:00";
    session.table.setText(55, Column::Time1, "30:00:00");
    session.table.setText(55, Column::Time2, "40:00:01");
    TTColorTargets(session);
    EXPECT_EQ(marked(session, 55), "TOTAL TIME:*|30:00:00*|Good*{Good}|40:00:01*|Beginner*|*|*|*|*");
    EXPECT_EQ(counts(session.state, Side::Player1), "0 0 0 0 0 0");
    EXPECT_EQ(session.table.selectedRow(), 55);
}

TEST(Totals, OfNineCharactersAreABeginners)
{
    for (const char* total : {"100:00:00", "1:0:00:00", "Жанна Жа "}) {
        Session session = sessionWith("", "");
        session.state.TargetWR[55] = "\xFF";
        session.table.setText(55, Column::Time1, total);
        session.table.setText(55, Column::Time2, total);
        TTColorTargets(session);
        EXPECT_EQ(marked(session, 55),
                  std::string("TOTAL TIME:*|") + total + "*|Beginner*{Text}|" + total + "*|Beginner*{Text}|*|*|*|*");
    }
}

TEST(Totals, OfEightCharactersAreGradedWhateverTheirBytes)
{
    Session session = sessionWith("", "");
    session.state.TargetWR[55] = "\xFF";
    session.table.setText(55, Column::Time1, "ЖаннаЖан");
    TTColorTargets(session);
    EXPECT_EQ(session.table.text(55, Column::Target1), "World Record");
}

TEST(Totals, ShowTheCategoryComparedWith)
{
    Session session = sessionWith("", "");
    session.CompCategory = "Good";
    session.table.setText(55, Column::Time1, "00:10:00");
    session.table.setText(55, Column::Time2, "00:10:00");
    TTColorTargets(session);
    EXPECT_EQ(marked(session, 55), "TOTAL TIME:*|00:10:00*|World Record*{WR}|00:10:00*|Good*{WR}|*|*|*|*");
}

TEST(Colouring, TakesItsColoursFromTheUsersScheme)
{
    Session session = sessionWith("00:40:00", "");
    session.colours.ColGood = rgb(1, 2, 3);
    ColorTargets1(session, 1);
    EXPECT_EQ(session.table.cell(1, Column::Target1).colour, 1 + 512 + 196608);
}

}  // namespace

}  // namespace kavo
