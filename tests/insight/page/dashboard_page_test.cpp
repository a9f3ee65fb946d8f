// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/dashboard_page.h"

#include "base/text_file.h"
#include "tests/support/loaded_folder.h"
#include "tests/support/places.h"
#include "tests/support/report_session.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kavo {
namespace {

using test::TemporaryFolder;

constexpr std::size_t kLargestPage = 250'000;
constexpr std::time_t kDay = 24 * 60 * 60;

Session demoSession(const TemporaryFolder& folder)
{
    test::copyDemo(folder);
    Session session;
    session.programFolder = folder.path();
    test::HostRecord host;
    EXPECT_EQ(load(session, host, {.user = "Marek"}).end, LoadingEnd::Completed);
    return session;
}

/// The demo's results, remembered two days and one day before the moment of the golden reports: at first without
/// a time on level 2, and with four seconds more on level 1.
Timeline demoTimeline(const TemporaryFolder& folder, const ResultsState& targets)
{
    const StatisticsTimes now = parseStatisticsTimes(folder.read("game/stats.txt"));
    StatisticsTimes before = now;
    before[1].time = "00:59:99";
    before[2].time = kSkipped;
    Timeline timeline;
    timeline.states = 2;
    timeline.points = {timelinePoint(test::reportMoment() - 2 * kDay, before, targets),
                       timelinePoint(test::reportMoment() - kDay, now, targets)};
    for (LevelChange& change : compareTimes(before, now, targets).changes)
        timeline.improvements.push_back({test::reportMoment() - kDay, std::move(change)});
    return timeline;
}

/// What is not style sheet and script.
std::string bodyOf(const std::string& page)
{
    const std::size_t from = page.find("<body>");
    return page.substr(from, page.find("<script>") - from);
}

TEST(DashboardPage, OfTheDemoIsTheGoldenOne)
{
    const TemporaryFolder folder;
    const Session session = demoSession(folder);
    const std::string page =
        formatDashboard(dashboardOf(session, demoTimeline(folder, session.state), test::reportMoment()));
    EXPECT_EQ(bodyOf(page), readFile(test::sourceFolder() / "tests/golden/marek-dashboard.html"));
}

TEST(DashboardPage, MayLoadNothingAndRunsNoScriptButItsOwn)
{
    const TemporaryFolder folder;
    const std::string page = formatDashboard(dashboardOf(demoSession(folder), {}, 0));
    EXPECT_TRUE(
        page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                         "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src &#39;none&#39;; "
                         "style-src &#39;unsafe-inline&#39;; script-src &#39;sha256-"));
    for (const char* foreign : {"http:", "https:", "//", "@import", "url("})
        EXPECT_EQ(page.substr(0, page.find("<script>")).find(foreign), std::string::npos) << foreign;
    EXPECT_EQ(page.find("<script>"), page.rfind("<script"));
}

TEST(DashboardPage, NamesAreTextsAndNothingElse)
{
    const std::string hostile = "</bdi></title></style><script>alert(1)</script>\"' onload=\"x";
    Session session = test::reportSession();
    session.UserName = hostile;
    session.state.Player1Name = hostile;
    session.state.Player2Name = hostile;
    session.state.TeamName = hostile;
    session.table.setText(1, Column::Level, "1, " + hostile);
    session.table.setText(2, Column::Time1, hostile);
    session.table.setText(3, Column::Target1, hostile);
    session.table.setText(4, Column::Time2, hostile);
    session.table.setText(5, Column::Target2, hostile);
    session.table.setText(6, Column::Difference, hostile);
    session.table.setText(kTotalsRow, Column::Time1, hostile);
    Timeline timeline;
    timeline.points.resize(2);
    timeline.points[1].moment = kDay;
    timeline.points[1].total = hostile;
    timeline.improvements.push_back({0, {.level = 1, .name = hostile, .before = hostile, .after = hostile}});
    const std::string page = formatDashboard(dashboardOf(session, timeline, 2 * kDay));
    EXPECT_EQ(page.find("<script>alert"), std::string::npos);
    EXPECT_EQ(page.find("\"x"), std::string::npos);
    EXPECT_EQ(page.find("<script"), page.rfind("<script"));
    EXPECT_NE(page.find("&lt;/bdi&gt;&lt;/title&gt;&lt;/style&gt;&lt;script&gt;alert(1)"), std::string::npos);
}

TEST(DashboardPage, IsNeverLargerThanItMayBe)
{
    // The longest names, of characters that take most room, and every time another one in every state.
    Session session = test::reportSession();
    std::string name;
    for (int i = 0; i < 1000; ++i) name += '"';
    session.state.Player1Name = name;
    session.state.Player2Name = name;
    for (int level = 1; level <= kLevels; ++level) session.table.setText(level, Column::Level, name);
    Timeline timeline;
    timeline.states = 900;
    for (std::size_t i = 0; i < kMostPoints; ++i) {
        TimelinePoint point;
        point.moment = static_cast<std::time_t>(i * i) * 7919;
        point.total = "1:23:45:67";
        point.hundredths = static_cast<Hundredths>(501234 + i * 3571 % 997);
        for (std::size_t grade = 0; grade < point.grades.values.size(); ++grade)
            point.grades.values.at(grade) = 9 + (grade % 2 == i % 2 ? 1 : -1);
        for (std::size_t level = 0; level < point.times.size(); ++level)
            point.times.at(level) = static_cast<Hundredths>(3000 + (i * 7919 + level * 104729) % 9973);
        timeline.points.push_back(point);
    }
    for (int i = 0; i < 10; ++i)
        timeline.improvements.push_back({0, {.level = 1, .name = name, .before = name, .after = name}});
    EXPECT_LE(formatDashboard(dashboardOf(session, timeline, 1000 * kDay)).size(), kLargestPage);
}

TEST(DashboardPage, SaysHowProgressIsSeenBeforeThereIsAny)
{
    const TemporaryFolder folder;
    const std::string page = formatDashboard(dashboardOf(demoSession(folder), {}, 0));
    EXPECT_NE(page.find("kavo-timing-cli history save remembers those of today"), std::string::npos);
    EXPECT_EQ(page.find("Over time"), std::string::npos);
    EXPECT_EQ(page.find("The latest improvements"), std::string::npos);
}

TEST(DashboardPage, OfOnePlayerComparesNobody)
{
    Session session = test::reportSession();
    for (int row = 1; row <= kTotalsRow; ++row) session.table.setText(row, Column::Time2, "");
    const std::string page = formatDashboard(dashboardOf(session, {}, 0));
    EXPECT_EQ(page.find("Who leads where"), std::string::npos);
    EXPECT_EQ(page.find("Bob"), std::string::npos);
    EXPECT_EQ(page.find("Difference"), std::string::npos);
}

}  // namespace
}  // namespace kavo
