// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/dashboard_page.h"

#include "insight/moment_text.h"
#include "insight/page/cells.h"
#include "insight/page/charts.h"
#include "insight/page/level_section.h"
#include "insight/page/page_colours.h"
#include "insight/page/page_frame.h"
#include "insight/page/progress_section.h"

#include <algorithm>

namespace kavo {

namespace {

constexpr std::size_t kMostGoals = 10;

std::string counted(std::size_t count, const std::string& thing)
{
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::vector<Side> sidesShown(const Dashboard& dashboard)
{
    if (dashboard.rival == Rival::None) return {Side::Player1};
    return {Side::Player1, Side::Player2, Side::Team};
}

const DashboardSide& sideOf(const Dashboard& dashboard, Side side)
{
    return dashboard.sides.at(static_cast<std::size_t>(side));
}

void writeTitle(Markup& page, const Dashboard& dashboard)
{
    page.open("header").open("h1").name(pageName(dashboard.user)).text(": times and grades").close();
    page.open("p", {{"class", "quiet"}}).text("As of " + minuteText(dashboard.now)).close().close().line();
}

std::string gradeCountsText(const GradeCounts& counts)
{
    std::string text;
    for (const Grade& grade : grades())
        text.append(text.empty() ? "" : ", ")
            .append(grade.name)
            .append(" ")
            .append(std::to_string(counts[grade.category]));
    return text;
}

void writeSummaryRow(Markup& page, const Dashboard& dashboard, Side side)
{
    const DashboardSide& row = sideOf(dashboard, side);
    page.open("tr").open("th", {{"scope", "row"}}).name(pageName(row.name)).close();
    writeCell(page, {.label = "Total"}, row.total);
    openCell(page, {.label = "Grades"});
    writeShares(page, pageName(row.name) + ": " + gradeCountsText(row.grades), gradeShares(row.grades));
    page.close();
    for (const Grade& grade : grades()) {
        writeCell(page, {.label = std::string(grade.name), .colourClass = gradeClass(grade.category)},
                  std::to_string(row.grades[grade.category]));
    }
    if (dashboard.rival != Rival::None)
        writeCell(page, {.label = "Levels won"}, side == Side::Team ? "" : std::to_string(row.victories));
    page.close().line();
}

void writeSummary(Markup& page, const Dashboard& dashboard)
{
    page.open("section").element("h2", "Totals and grades").line();
    page.open("table", {{"class", "cards"}}).open("thead").open("tr");
    writeHeading(page, "");
    writeHeading(page, "Total");
    writeHeading(page, "Grades");
    for (const Grade& grade : grades()) writeHeading(page, grade.name);
    if (dashboard.rival != Rival::None) writeHeading(page, "Levels won");
    page.close().close().open("tbody").line();
    for (const Side side : sidesShown(dashboard)) writeSummaryRow(page, dashboard, side);
    page.close().close().close().line();
}

void writeGoal(Markup& page, const Improvement& improvement)
{
    page.open("li").text("Level ").name(pageName(improvement.name));
    page.text(": " + secondsText(improvement.next.gap) + " s to ");
    page.element("b", {{"class", gradeClass(improvement.next.grade)}}, gradeOf(improvement.next.grade).name)
        .close()
        .line();
}

std::string withinText(const std::vector<Improvement>& improvements)
{
    std::string text;
    for (const Hundredths gap : kWithin)
        text.append(text.empty() ? "Within " : ", within ")
            .append(secondsText(gap))
            .append(" s: ")
            .append(counted(countWithin(improvements, gap), "level"));
    return text;
}

void writeGoals(Markup& page, const DashboardSide& side)
{
    page.open("div").open("h3").name(pageName(side.name)).close().line();
    if (side.next.empty()) {
        page.element("p", "No better grade is in sight.").close().line();
        return;
    }
    page.element("p", {{"class", "quiet"}}, withinText(side.next)).open("ol").line();
    for (std::size_t i = 0; i < std::min(side.next.size(), kMostGoals); ++i) writeGoal(page, side.next.at(i));
    page.close().close().line();
}

void writeNext(Markup& page, const Dashboard& dashboard)
{
    page.open("section").element("h2", "The next goals").open("div", {{"class", "columns"}}).line();
    writeGoals(page, sideOf(dashboard, Side::Player1));
    if (dashboard.rival == Rival::Player) writeGoals(page, sideOf(dashboard, Side::Player2));
    page.close().close().line();
}

void writeImprovements(Markup& page, const Timeline& timeline)
{
    if (timeline.improvements.empty()) return;
    page.open("section").element("h2", "The latest improvements").open("ul").line();
    for (const DatedImprovement& improvement : timeline.improvements) {
        const LevelChange& change = improvement.change;
        page.open("li").element("span", {{"class", "quiet"}}, minuteText(improvement.moment)).text(" Level ");
        page.name(pageName(change.name)).text(": " + pageName(change.before) + " → " + pageName(change.after) + ", ");
        const auto writeGrade = [&page](TargetCategory category) {
            page.element("b", {{"class", gradeClass(category)}}, gradeOf(category).name);
        };
        if (change.gradeBefore != change.gradeAfter) {
            writeGrade(change.gradeBefore);
            page.text(" → ");
        }
        writeGrade(change.gradeAfter);
        page.close().line();
    }
    page.close().close().line();
}

/// Who is ahead on which levels.
struct Leads
{
    std::string levels;
    int count = 0;
};

Leads leadsOf(const Dashboard& dashboard, Faster ahead)
{
    Leads leads;
    for (const DashboardLevel& level : dashboard.levels) {
        if (level.ahead != ahead) continue;
        leads.levels.append(leads.levels.empty() ? "" : ", ").append(std::to_string(level.level));
        ++leads.count;
    }
    return leads;
}

void writeLeads(Markup& page, const Dashboard& dashboard)
{
    if (dashboard.rival == Rival::None) return;
    const std::string name1 = pageName(sideOf(dashboard, Side::Player1).name);
    const std::string name2 = pageName(sideOf(dashboard, Side::Player2).name);
    const Leads first = leadsOf(dashboard, Faster::First);
    const Leads second = leadsOf(dashboard, Faster::Second);
    const Leads neither = leadsOf(dashboard, Faster::Neither);
    page.open("section").element("h2", "Who leads where").line();
    writeShares(page,
                name1 + " leads on " + std::to_string(first.count) + ", " + name2 + " on " +
                    std::to_string(second.count) + ", nobody on " + std::to_string(neither.count),
                {{"p1", first.count}, {"line", neither.count}, {"p2", second.count}});
    page.open("dl").line();
    const auto write = [&page](const std::string& name, const std::string& kind, const Leads& leads) {
        page.open("dt").element("span", {{"class", "key " + kind}}, "").name(name);
        page.text(": " + counted(static_cast<std::size_t>(leads.count), "level")).close();
        page.element("dd", leads.levels).line();
    };
    write(name1, "p1", first);
    write("Nobody, equal times", "line", neither);
    write(name2, "p2 solid", second);
    page.close().close().line();
}

}  // namespace

std::string formatDashboard(const Dashboard& dashboard)
{
    return formatPage(pageName(dashboard.user) + ": times and grades", dashboard.colours, [&](Markup& page) {
        writeTitle(page, dashboard);
        page.open("main").line();
        writeSummary(page, dashboard);
        writeNext(page, dashboard);
        writeImprovements(page, dashboard.timeline);
        writeProgress(page, dashboard.timeline, dashboard.now);
        writeLeads(page, dashboard);
        writeLevels(page, dashboard);
        page.close().line();
    });
}

}  // namespace kavo
