// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/progress_section.h"

#include "insight/moment_text.h"
#include "insight/page/cells.h"
#include "insight/page/page_colours.h"

#include <algorithm>

namespace kavo {

namespace {

constexpr std::size_t kEnoughStates = 2;

std::vector<StackedStep> gradeSteps(const Timeline& timeline, const std::vector<double>& places)
{
    std::vector<StackedStep> steps;
    for (std::size_t i = 0; i < timeline.points.size(); ++i)
        steps.push_back({.from = places.at(i), .shares = gradeShares(timeline.points.at(i).grades)});
    return steps;
}

std::vector<Step> totalSteps(const Timeline& timeline, const std::vector<double>& places)
{
    std::vector<Step> steps;
    for (std::size_t i = 0; i < timeline.points.size(); ++i)
        steps.push_back({places.at(i), timeline.points.at(i).hundredths});
    return steps;
}

std::vector<Step> levelSteps(const Timeline& timeline, const std::vector<double>& places, int level)
{
    std::vector<Step> steps;
    for (std::size_t i = 0; i < timeline.points.size(); ++i)
        steps.push_back({places.at(i), timeline.points.at(i).times.at(static_cast<std::size_t>(level) - 1)});
    return steps;
}

/// The ends of the time axis below a drawing.
void writeEnds(Markup& page, const Timeline& timeline, std::time_t now)
{
    page.open("p", {{"class", "ends quiet"}}).element("span", minuteText(timeline.points.front().moment));
    page.element("span", minuteText(now)).close().line();
}

void writeTotals(Markup& page, const Timeline& timeline, const std::vector<double>& places, std::time_t now)
{
    const auto smaller = [](const TimelinePoint& a, const TimelinePoint& b) { return a.hundredths < b.hundredths; };
    const auto [best, worst] = std::minmax_element(timeline.points.begin(), timeline.points.end(), smaller);
    page.open("figure").element("figcaption", "Total time");
    page.element("p", {{"class", "ends quiet"}}, "Largest: " + worst->total).line();
    writeLine(
        page, "Total time over the remembered results",
        "From " + timeline.points.front().total + " to " + timeline.points.back().total + ", the table below has all",
        totalSteps(timeline, places));
    page.element("p", {{"class", "ends quiet"}}, "Smallest: " + best->total).line();
    writeEnds(page, timeline, now);
    page.close().line();
}

void writeGrades(Markup& page, const Timeline& timeline, const std::vector<double>& places, std::time_t now)
{
    page.open("figure").element("figcaption", "Grades").open("p", {{"class", "keys"}});
    for (const Grade& grade : grades()) {
        const std::string kind = gradeClass(grade.category);
        page.open("span").element("span", {{"class", "key " + kind}}, "").text(grade.name).close();
    }
    page.close().line();
    writeStack(page, "Levels of each grade over the remembered results",
               "The best grade at the bottom, all levels together at the top; the table below has the numbers",
               gradeSteps(timeline, places));
    writeEnds(page, timeline, now);
    page.close().line();
}

void writePoint(Markup& page, const TimelinePoint& point, std::size_t place)
{
    page.open("tr");
    writeRowName(page, minuteText(point.moment), std::to_string(place));
    writeCell(page, {.label = "Total", .value = std::to_string(point.hundredths)}, point.total);
    for (const Grade& grade : grades()) {
        const int count = point.grades[grade.category];
        writeCell(page, {.label = std::string(grade.name), .value = std::to_string(count)}, std::to_string(count));
    }
    page.close().line();
}

void writeTable(Markup& page, const Timeline& timeline)
{
    std::string title = "Table of " + std::to_string(timeline.points.size());
    if (timeline.points.size() < timeline.states) title += " of " + std::to_string(timeline.states);
    page.open("details").element("summary", title + " remembered results").line();
    page.open("table", {{"class", "cards sortable"}}).open("thead").open("tr");
    writeHeading(page, "Since");
    writeHeading(page, "Total");
    for (const Grade& grade : grades()) writeHeading(page, grade.name);
    page.close().close().open("tbody").line();
    for (std::size_t i = 0; i < timeline.points.size(); ++i) writePoint(page, timeline.points.at(i), i);
    page.close().close().close().line();
}

std::string gainText(Hundredths gain)
{
    if (gain == 0) return {};
    return secondsText(gain < 0 ? -gain : gain) + " s " + (gain < 0 ? "slower" : "faster");
}

}  // namespace

std::vector<double> placesInTime(const Timeline& timeline, std::time_t now)
{
    std::vector<double> places;
    if (timeline.points.empty()) return places;
    const std::time_t first = timeline.points.front().moment;
    const std::time_t last = timeline.points.back().moment;
    // The last state is to be seen, too, also when the clock has been put back since.
    const auto length = static_cast<double>(std::max(now, last + 1 + (last - first) / 50) - first);
    for (const TimelinePoint& point : timeline.points)
        places.push_back(static_cast<double>(point.moment - first) / length);
    return places;
}

void writeProgress(Markup& page, const Timeline& timeline, std::time_t now)
{
    page.open("section").element("h2", "Progress").line();
    if (timeline.points.size() < kEnoughStates) {
        page.element("p",
                     "Shown as soon as two results are remembered: kavo-timing-cli history save remembers those "
                     "of today, kavo-timing-cli watch all that the game writes.");
        page.close().line();
        return;
    }
    const std::vector<double> places = placesInTime(timeline, now);
    page.open("div", {{"class", "columns"}}).line();
    writeTotals(page, timeline, places, now);
    writeGrades(page, timeline, places, now);
    page.close().line();
    writeTable(page, timeline);
    page.close().line();
}

std::optional<Hundredths> gainOn(const Timeline& timeline, int level)
{
    std::optional<Hundredths> first;
    std::optional<Hundredths> last;
    for (const TimelinePoint& point : timeline.points) {
        const auto time = point.times.at(static_cast<std::size_t>(level) - 1);
        if (!first) first = time;
        if (time) last = time;
    }
    if (!first || !last) return std::nullopt;
    return *first - *last;
}

void writeLevelProgress(Markup& page, const Timeline& timeline, const std::vector<double>& places, int level)
{
    const std::vector<Step> steps = levelSteps(timeline, places, level);
    const auto differs = [&steps](const Step& step) { return step.value != steps.front().value; };
    if (std::none_of(steps.begin(), steps.end(), differs)) return;
    const Hundredths gain = gainOn(timeline, level).value_or(0);
    const std::string text = gainText(gain);
    writeLine(page, "Times over the remembered results", {}, steps);
    page.text(text);
}

}  // namespace kavo
