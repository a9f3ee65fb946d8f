// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/club_page.h"

#include "insight/moment_text.h"
#include "insight/page/cells.h"
#include "insight/page/page_colours.h"
#include "insight/page/page_frame.h"

#include <algorithm>

namespace kavo {

namespace {

constexpr std::size_t kMostPlayers = 80;
constexpr std::size_t kMostWinners = 5;  // named on a level; the matrix has the others
constexpr std::string_view kTitle = "Table of the club";

std::string levelsWon(const LevelSet& won)
{
    std::string text;
    for (std::size_t i = 0; i < won.size(); ++i)
        if (won.test(i)) text.append(text.empty() ? "" : ", ").append(std::to_string(i + 1));
    return text.empty() ? "none" : text;
}

/// A square for each level, filled where it is won.
void writeWins(Markup& page, const std::string& name, const LevelSet& won)
{
    const std::string width = std::to_string(won.size());
    page.open(
        "svg",
        {{"class", "matrix"}, {"role", "img"}, {"viewBox", "0 0 " + width + " 1"}, {"preserveAspectRatio", "none"}});
    page.element("title", name + " has won the levels: " + levelsWon(won));
    page.empty("rect", {{"width", width}, {"height", "1"}});
    std::string path;
    for (std::size_t i = 0; i < won.size(); ++i)
        if (won.test(i)) path += "M" + std::to_string(i) + " 0h.9v1h-.9z";
    if (!path.empty()) page.empty("path", {{"d", path}});
    page.close();
}

void writeGradeCells(Markup& page, const GradeCounts& counts)
{
    for (const Grade& grade : grades()) {
        const std::string count = std::to_string(counts[grade.category]);
        writeCell(page, {.label = std::string(grade.name), .value = count, .colourClass = gradeClass(grade.category)},
                  count);
    }
}

void writePlayer(Markup& page, const ClubPlayer& player, std::size_t rank)
{
    const std::string won = std::to_string(player.won.count());
    const std::string name = pageName(player.name);
    page.open("tr");
    writeCell(page, {.label = "Rank", .value = std::to_string(rank)}, std::to_string(rank));
    writeRowName(page, name, std::to_string(rank));
    writeCell(page, {.label = "Total", .value = std::to_string(player.hundredths)}, player.total);
    writeGradeCells(page, player.grades);
    writeCell(page, {.label = "Levels won", .value = won}, won);
    openCell(page, {.label = "Levels 1 to 54", .colourClass = "drawing"});
    writeWins(page, name, player.won);
    page.close().close().line();
}

void writePlayersHead(Markup& page)
{
    page.open("table", {{"class", "cards sortable"}}).open("thead").open("tr");
    writeHeading(page, "Rank");
    writeHeading(page, "Player");
    writeHeading(page, "Total");
    for (const Grade& grade : grades()) writeHeading(page, grade.name);
    writeHeading(page, "Levels won");
    writeHeading(page, "Levels 1 to 54", Sorting::None);
    page.close().close();
}

void writePlayers(Markup& page, const ClubPart& club)
{
    const std::size_t shown = std::min(club.players.size(), kMostPlayers);
    page.open("section").element("h2", "Players and the levels they have won").line();
    if (shown < club.players.size())
        page.element("p", "The first " + std::to_string(shown) + " of " + std::to_string(club.players.size()) +
                              " players; kavo-timing-cli club --json has them all.")
            .line();
    writePlayersHead(page);
    page.open("tbody").line();
    for (std::size_t i = 0; i < shown; ++i) writePlayer(page, club.players.at(i), i + 1);
    page.close().close().close().line();
}

void writeTeam(Markup& page, const ClubPart& club)
{
    const ClubTeam team = teamOf(club);
    page.open("section").element("h2", "The team of all").line();
    page.open("p").text("Total: " + team.total);
    for (const Grade& grade : grades()) {
        page.text(", ").element("b", {{"class", gradeClass(grade.category)}}, grade.name);
        page.text(" " + std::to_string(team.grades[grade.category]));
    }
    page.close().close().line();
}

void writeWinners(Markup& page, const ClubPart& club, int level)
{
    const std::vector<std::string_view> winners = winnersOf(club, level);
    openCell(page, {.label = "Won by", .colourClass = "name"});
    for (std::size_t i = 0; i < std::min(winners.size(), kMostWinners); ++i) {
        if (i > 0) page.text(", ");
        page.name(pageName(winners.at(i)));
    }
    if (winners.size() > kMostWinners) page.text(" and " + std::to_string(winners.size() - kMostWinners) + " more");
    page.close();
}

void writeLevels(Markup& page, const ClubPart& club)
{
    page.open("section").element("h2", "The best of every level").line();
    page.open("table", {{"class", "cards sortable"}}).open("thead").open("tr");
    for (const char* heading : {"Level", "Best time", "Grade", "Won by"}) writeHeading(page, heading);
    page.close().close().open("tbody").line();
    for (int level = 1; level <= kLevels; ++level) {
        const ClubLevel& best = club.levels.at(static_cast<std::size_t>(level) - 1);
        page.open("tr");
        writeRowName(page, pageName(best.name), std::to_string(level));
        writeCell(page, {.label = "Best time", .value = sortValue(exactTime(best.time))}, pageName(best.time));
        writeGradeCell(page, "Grade", std::string(gradeOf(best.grade).name));
        writeWinners(page, club, level);
        page.close().line();
    }
    page.close().close().close().line();
}

}  // namespace

std::string formatClubPage(const ClubPart& club, const ColourSet& scheme, std::time_t now)
{
    return formatPage(kTitle, scheme, [&](Markup& page) {
        page.open("header").element("h1", kTitle);
        page.element("p", {{"class", "quiet"}}, "As of " + minuteText(now)).close().line();
        page.open("main").line();
        writePlayers(page, club);
        writeTeam(page, club);
        writeLevels(page, club);
        page.close().line();
    });
}

}  // namespace kavo
