// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/level_section.h"

#include "insight/page/cells.h"
#include "insight/page/charts.h"
#include "insight/page/page_frame.h"
#include "insight/page/progress_section.h"

namespace kavo {

namespace {

constexpr std::string_view kTarget1 = "Target 1";
constexpr std::string_view kTarget2 = "Target 2";
constexpr std::string_view kDifference = "Difference";
constexpr std::string_view kAhead = "Ahead";
constexpr std::string_view kNext = "To the next grade";
constexpr std::string_view kBar = "From OK to World Record";
constexpr std::string_view kProgress = "Over time";

/// What the rows have in common.
struct LevelTable
{
    const Dashboard& dashboard;
    std::string name1;
    std::string name2;
    bool hasRival;
    bool hasProgress;
    std::vector<double> places;
};

LevelTable tableOf(const Dashboard& dashboard)
{
    return {.dashboard = dashboard,
            .name1 = pageName(dashboard.sides[0].name),
            .name2 = pageName(dashboard.sides[1].name),
            .hasRival = dashboard.rival != Rival::None,
            .hasProgress = dashboard.timeline.points.size() > 1,
            .places = placesInTime(dashboard.timeline, dashboard.now)};
}

void writeHeadings(Markup& page, const LevelTable& table)
{
    page.open("thead").open("tr");
    writeHeading(page, "Level");
    writeNameHeading(page, table.name1);
    writeHeading(page, kTarget1);
    if (table.hasRival) {
        writeNameHeading(page, table.name2);
        writeHeading(page, kTarget2);
        writeHeading(page, kDifference);
        writeHeading(page, kAhead);
    }
    writeHeading(page, kNext);
    writeHeading(page, kBar, Sorting::None);
    if (table.hasProgress) writeHeading(page, kProgress);
    page.close().close().line();
}

void writeTime(Markup& page, const std::string& name, std::string_view gradeLabel, const DashboardTime& time)
{
    writeCell(page, {.label = name, .value = sortValue(exactTime(time.time))}, pageName(time.time));
    writeGradeCell(page, std::string(gradeLabel), time.grade);
}

void writeComparison(Markup& page, const LevelTable& table, const DashboardLevel& level)
{
    writeTime(page, table.name2, kTarget2, level.players[1]);
    const auto difference = level.difference == kNoChange ? Hundredths{0} : exactTime(level.difference);
    writeCell(page, {.label = std::string(kDifference), .value = sortValue(difference)}, level.difference);
    const std::string ahead = level.ahead == Faster::First    ? table.name1
                              : level.ahead == Faster::Second ? table.name2
                                                              : std::string();
    openCell(page, {.label = std::string(kAhead), .colourClass = "name"});
    if (!ahead.empty()) page.name(ahead);
    page.close();
}

/// The goal without the name of the level.
void writeNext(Markup& page, const DashboardLevel& level)
{
    const std::string label(kNext);
    if (!level.next) {
        writeCell(page, {.label = label, .value = ""}, "");
        return;
    }
    openCell(page, {.label = label, .value = std::to_string(level.next->gap)});
    page.text(describe(*level.next)).close();
}

std::string barTitle(const LevelTable& table, const DashboardLevel& level)
{
    std::string title = table.name1 + " " + pageName(level.players[0].time);
    if (table.hasRival) title += ", " + table.name2 + " " + pageName(level.players[1].time);
    return title + "; OK " + exactTotalText(level.scale->front()) + ", World Record " +
           exactTotalText(level.scale->back());
}

void writeBar(Markup& page, const LevelTable& table, const DashboardLevel& level)
{
    openCell(page, {.label = std::string(kBar), .colourClass = "drawing"});
    if (level.scale) {
        const auto time2 = table.hasRival ? exactTime(level.players[1].time) : std::nullopt;
        writeTimeBar(page, barTitle(table, level), *level.scale, exactTime(level.players[0].time), time2);
    }
    page.close();
}

void writeOverTime(Markup& page, const LevelTable& table, int level)
{
    const Timeline& timeline = table.dashboard.timeline;
    openCell(page,
             {.label = std::string(kProgress), .value = sortValue(gainOn(timeline, level)), .colourClass = "drawing"});
    writeLevelProgress(page, timeline, table.places, level);
    page.close();
}

void writeRow(Markup& page, const LevelTable& table, const DashboardLevel& level)
{
    page.open("tr");
    writeRowName(page, pageName(level.name), std::to_string(level.level));
    writeTime(page, table.name1, kTarget1, level.players[0]);
    if (table.hasRival) writeComparison(page, table, level);
    writeNext(page, level);
    writeBar(page, table, level);
    if (table.hasProgress) writeOverTime(page, table, level.level);
    page.close().line();
}

}  // namespace

void writeLevels(Markup& page, const Dashboard& dashboard)
{
    const LevelTable table = tableOf(dashboard);
    page.open("section").element("h2", "All levels").line();
    page.open("p", {{"class", "keys quiet"}}).open("span");
    page.element("span", {{"class", "key p1"}}, "").name(table.name1).close();
    if (table.hasRival) page.open("span").element("span", {{"class", "key p2"}}, "").name(table.name2).close();
    page.close().line();
    page.open("table", {{"class", "cards sortable"}}).line();
    writeHeadings(page, table);
    page.open("tbody").line();
    for (const DashboardLevel& level : dashboard.levels) writeRow(page, table, level);
    page.close().close().close().line();
}

}  // namespace kavo
