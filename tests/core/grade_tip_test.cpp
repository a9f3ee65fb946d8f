// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/grade_tip.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

constexpr int kRow = 7;

/// Targets of 30.50, 32, 35, 40 and 50 seconds on one row.
ResultsState targets()
{
    ResultsState state;
    state.TargetWR[kRow] = "00:30:50";
    state.TargetWC[kRow] = "00:32:00";
    state.TargetPro[kRow] = "00:35:00";
    state.TargetGood[kRow] = "00:40:00";
    state.TargetOK[kRow] = "00:50:00";
    return state;
}

struct Case
{
    const char* time;
    const char* grade;
    const char* tip;
};

TEST(GradeTip, NamesTheGradeAndWhatIsMissingToTheNextOne)
{
    for (const auto& [time, grade, tip] :
         {Case{"00:31:17", "World Class", "World Class. 0.67 s to World Record (00:30:50)"},
          Case{"00:32:01", "Professional", "Professional. 0.01 s to World Class (00:32:00)"},
          Case{"00:40:00", "Good", "Good. 5.00 s to Professional (00:35:00)"},
          Case{"00:45:00", "OK", "OK. 5.00 s to Good (00:40:00)"},
          Case{"02:00:25", "Beginner", "Beginner. 70.25 s to OK (00:50:00)"}})
        EXPECT_EQ(gradeTip(targets(), kRow, time, grade), tip);
}

TEST(GradeTip, NamesTheTargetOfARecord)
{
    EXPECT_EQ(gradeTip(targets(), kRow, "00:30:50", "World Record"), "World Record (00:30:50)");
    EXPECT_EQ(gradeTip(targets(), kRow, "00:29:00", "World Record"), "World Record (00:30:50)");
    EXPECT_EQ(gradeTip({}, kRow, "00:29:00", "World Record"), "World Record");
}

TEST(GradeTip, OfGradesWithTheSameTargetNamesTheBest)
{
    ResultsState state = targets();
    state.TargetPro[kRow] = state.TargetGood[kRow];
    EXPECT_EQ(gradeTip(state, kRow, "00:45:00", "OK"), "OK. 5.00 s to Professional (00:40:00)");
}

TEST(GradeTip, NamesTheNearestTargetWhateverTheirOrder)
{
    ResultsState state = targets();
    state.TargetWC[kRow] = "00:38:00";  // slower than Professional
    EXPECT_EQ(gradeTip(state, kRow, "00:40:00", "Good"), "Good. 2.00 s to World Class (00:38:00)");
}

TEST(GradeTip, PassesOverATargetThatTheTimeMeets)
{
    EXPECT_EQ(gradeTip(targets(), kRow, "00:40:00", "OK"), "OK. 5.00 s to Professional (00:35:00)");
}

TEST(GradeTip, SaysNothingOfATimeOrTargetThatIsNone)
{
    for (const char* time : {"SKIPPED", "", "1:15:12:34", "123:04:05", "00:31.17", "00:3x:17"})
        EXPECT_EQ(gradeTip(targets(), kRow, time, "Beginner"), "Beginner") << time;
    EXPECT_EQ(gradeTip({}, kRow, "00:45:00", "Beginner"), "Beginner");
    ResultsState state = targets();
    state.TargetOK[kRow] = "soon";
    EXPECT_EQ(gradeTip(state, kRow, "00:55:00", "Beginner"), "Beginner. 15.00 s to Good (00:40:00)");
}

TEST(GradeTip, OfABlankedRowIsEmpty)
{
    EXPECT_EQ(gradeTip(targets(), kRow, "", ""), "");
}

}  // namespace

}  // namespace kavo
