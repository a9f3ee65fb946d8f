// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/insight_json.h"

#include "base/file_name.h"
#include "base/shown_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace kavo {

namespace {

using Json = nlohmann::ordered_json;

std::string nameOfGrade(TargetCategory grade)
{
    return std::string(gradeOf(grade).name);
}

Json numberOrNull(std::optional<Hundredths> number)
{
    return number ? Json(*number) : Json(nullptr);
}

/// "2026-11-21T10:46:31Z", out of the name of a state.
std::string utcText(std::string_view state)
{
    constexpr std::size_t kLength = 20;
    std::string text(state);
    for (const std::size_t place : {4U, 7U}) text.insert(place, "-");
    for (const std::size_t place : {13U, 16U}) text.insert(place, ":");
    return text.substr(0, kLength);
}

Json textOrNull(std::string_view text)
{
    return text.empty() ? Json(nullptr) : Json(toUtf8(text));
}

std::string written(const Json& json)
{
    return json.dump(2) + "\n";
}

Json improvementJson(const Improvement& improvement)
{
    return {{"level", improvement.level},
            {"name", toUtf8(improvement.name)},
            {"time", toUtf8(improvement.time)},
            {"hundredths", improvement.hundredths},
            {"grade", nameOfGrade(improvement.grade)},
            {"next",
             {{"grade", nameOfGrade(improvement.next.grade)},
              {"target", toUtf8(improvement.next.target)},
              {"gap", improvement.next.gap}}},
            {"record_gap", numberOrNull(improvement.recordGap)}};
}

Json changeJson(const LevelChange& change)
{
    return {{"level", change.level},
            {"name", toUtf8(change.name)},
            {"before", toUtf8(change.before)},
            {"after", toUtf8(change.after)},
            {"grade_before", nameOfGrade(change.gradeBefore)},
            {"grade_after", nameOfGrade(change.gradeAfter)},
            {"kind", nameOf(change.kind)},
            {"gain", change.gain}};
}

Json bestJson(int level, const BestEverLevel& best, const ResultsState& targets)
{
    return {{"level", level},
            {"name", toUtf8(best.name)},
            {"time", toUtf8(best.time)},
            {"hundredths", numberOrNull(exactTime(best.time))},
            {"driver", toUtf8(best.driver)},
            {"grade", nameOfGrade(shownGrade(targets, level, best.time))},
            {"since", textOrNull(best.since)}};
}

Json gradesJson(const GradeCounts& counts)
{
    Json json = Json::object();
    for (const Grade& grade : grades()) json[std::string(grade.name)] = counts[grade.category];
    return json;
}

Json playerJson(const ClubPlayer& player)
{
    return {{"name", toUtf8(player.name)},         {"file", toUtf8(player.file)},
            {"total", toUtf8(player.total)},       {"hundredths", player.hundredths},
            {"grades", gradesJson(player.grades)}, {"levels_won", player.won.count()}};
}

Json clubLevelJson(const ClubPart& part, int level)
{
    const ClubLevel& best = part.levels.at(static_cast<std::size_t>(level) - 1);
    Json drivers = Json::array();
    for (const std::string_view name : winnersOf(part, level)) drivers.push_back(toUtf8(name));
    return {{"level", level},
            {"name", toUtf8(best.name)},
            {"time", toUtf8(best.time)},
            {"grade", nameOfGrade(best.grade)},
            {"drivers", std::move(drivers)}};
}

}  // namespace

std::string formatImprovementsJson(std::string_view player, const std::vector<Improvement>& improvements,
                                   std::size_t limit)
{
    Json rows = Json::array();
    for (std::size_t i = 0; i < std::min(limit, improvements.size()); ++i)
        rows.push_back(improvementJson(improvements[i]));
    Json within = Json::object();
    for (const Hundredths gap : kWithin) within[secondsText(gap)] = countWithin(improvements, gap);
    return written({{"player", toUtf8(player)}, {"rows", std::move(rows)}, {"within", std::move(within)}});
}

std::string formatHistoryJson(const HistoryStore& history, const std::vector<RememberedState>& states)
{
    Json list = Json::array();
    for (const RememberedState& state : states)
        list.push_back({{"name", state.name}, {"time", utcText(state.name)}, {"bytes", state.mark.size}});
    return written({{"folder", toUtf8(textOf(history.folder()))}, {"states", std::move(list)}});
}

std::string formatProgressJson(std::string_view from, std::string_view to, const Progress& progress)
{
    Json changes = Json::array();
    for (const LevelChange& change : progress.changes) changes.push_back(changeJson(change));
    return written({{"from", from},
                    {"to", to},
                    {"changes", std::move(changes)},
                    {"total",
                     {{"before", toUtf8(progress.totalBefore)},
                      {"after", toUtf8(progress.totalAfter)},
                      {"gain", progress.gain}}}});
}

std::string formatBestEverJson(const BestEver& best, const ResultsState& targets)
{
    Json levels = Json::array();
    for (int level = 1; level <= kLevels; ++level) levels.push_back(bestJson(level, best[level], targets));
    const StatisticsTimes times = timesOf(best);
    return written(
        {{"levels", std::move(levels)}, {"total", {{"time", shownTotal(times)}, {"hundredths", exactTotal(times)}}}});
}

std::string formatClubJson(const ClubReading& reading)
{
    const ClubTeam team = teamOf(reading.part);
    Json players = Json::array();
    for (const ClubPlayer& player : reading.part.players) players.push_back(playerJson(player));
    Json levels = Json::array();
    for (int level = 1; level <= kLevels; ++level) levels.push_back(clubLevelJson(reading.part, level));
    Json unreadable = Json::array();
    for (const UnreadableFile& file : reading.unreadable)
        unreadable.push_back({{"file", toUtf8(file.file)}, {"reason", toUtf8(file.reason)}});
    return written(
        {{"players", std::move(players)},
         {"levels", std::move(levels)},
         {"team",
          {{"total", toUtf8(team.total)}, {"hundredths", team.hundredths}, {"grades", gradesJson(team.grades)}}},
         {"unreadable", std::move(unreadable)}});
}

std::string formatFindingsJson(const Findings& findings)
{
    Json list = Json::array();
    for (const Finding& finding : findings) {
        const bool hasLine = finding.line != 0;
        list.push_back({{"severity", nameOf(finding.severity)},
                        {"file", toUtf8(textOf(finding.file))},
                        {"line", hasLine ? Json(finding.line) : Json(nullptr)},
                        {"byte", hasLine ? Json(finding.byte) : Json(nullptr)},
                        {"text", toUtf8(finding.text)},
                        {"expected", textOrNull(finding.expected)},
                        {"advice", toUtf8(finding.advice)}});
    }
    return written({{"findings", std::move(list)}});
}

}  // namespace kavo
