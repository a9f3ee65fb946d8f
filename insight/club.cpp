// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/club.h"

#include "base/file_name.h"
#include "insight/fingerprint.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace kavo {

namespace {

/// The order of the table. Where all but the file is equal, the two are the same player.
auto placeOf(const ClubPlayer& player)
{
    return std::tie(player.hundredths, player.name, player.fingerprint, player.file);
}

bool stands(const ClubPlayer& before, const ClubPlayer& after)
{
    return placeOf(before) < placeOf(after);
}

bool isSamePlayer(const ClubPlayer& one, const ClubPlayer& other)
{
    return one.hundredths == other.hundredths && one.name == other.name && one.fingerprint == other.fingerprint;
}

void sortPlayers(std::vector<ClubPlayer>& players)
{
    std::sort(players.begin(), players.end(), stands);
    players.erase(std::unique(players.begin(), players.end(), isSamePlayer), players.end());
}

/// Negative when the first level's best is the faster one, 0 for a tie, which two levels without a time are.
int comparedBests(const ClubLevel& one, const ClubLevel& other)
{
    const auto value = exactTime(one.time);
    const auto otherValue = exactTime(other.time);
    if (value && otherValue) return *value < *otherValue ? -1 : static_cast<int>(*value > *otherValue);
    return static_cast<int>(otherValue.has_value()) - static_cast<int>(value.has_value());
}

/// The better of two bests; `lostByOne` and `lostByOther` get the level when their players have lost it.
ClubLevel betterOf(const ClubLevel& one, const ClubLevel& other, std::size_t bit, LevelSet& lostByOne,
                   LevelSet& lostByOther)
{
    const int compared = comparedBests(one, other);
    if (compared < 0) lostByOther.set(bit);
    if (compared > 0) lostByOne.set(bit);
    if (compared != 0) return compared < 0 ? one : other;
    // Two spellings of the same time: one of them, whichever part comes first.
    return one.time <= other.time ? one : other;
}

void takeFrom(std::vector<ClubPlayer>& players, const LevelSet& lost)
{
    for (ClubPlayer& player : players) player.won &= ~lost;
}

}  // namespace

ClubCollector::ClubCollector(const ResultsState& targets) : m_targets(targets)
{
    m_part.targets = targetsFingerprint(targets);
}

void ClubCollector::add(std::string_view text, std::string_view file)
{
    const StatisticsTimes times = parseStatisticsTimes(text);
    m_part.players.push_back(playerFrom(times, text, file));
    for (int level = 1; level <= kLevels; ++level) compare(level, times[level].time);
    const std::size_t place = m_part.players.size() - 1;
    if (place > 0 && !stands(m_part.players[place], m_part.players[m_first])) return;
    m_first = place;
    for (int level = 1; level <= kLevels; ++level)
        m_part.levels.at(static_cast<std::size_t>(level) - 1).name = times[level].name;
}

ClubPlayer ClubCollector::playerFrom(const StatisticsTimes& times, std::string_view text, std::string_view file) const
{
    ClubPlayer player;
    player.name = playerOf(times);
    if (player.name.empty()) player.name = textOf(pathOf(file).filename());
    player.file = file;
    player.fingerprint = fingerprint(text);
    player.total = shownTotal(times);
    player.hundredths = exactTotal(times);
    for (int level = 1; level <= kLevels; ++level) ++player.grades[shownGrade(m_targets, level, times[level].time)];
    return player;
}

/// The time of the player who was added last against the best so far.
void ClubCollector::compare(int level, const std::string& time)
{
    if (!exactTime(time)) return;
    const std::size_t index = static_cast<std::size_t>(level) - 1;
    ClubLevel& best = m_part.levels.at(index);
    std::vector<std::size_t>& winners = m_winners.at(index);
    const ClubLevel driven{best.name, time, shownGrade(m_targets, level, time)};
    const int compared = comparedBests(driven, best);
    if (compared > 0) return;
    if (compared < 0) winners.clear();
    winners.push_back(m_part.players.size() - 1);
    if (compared < 0 || driven.time < best.time) best = driven;
}

ClubPart ClubCollector::finish()
{
    for (std::size_t index = 0; index < kLevels; ++index)
        for (const std::size_t place : m_winners.at(index)) m_part.players[place].won.set(index);
    sortPlayers(m_part.players);
    m_winners = {};
    return std::move(m_part);
}

bool areInOrder(const std::vector<ClubPlayer>& players)
{
    const auto isOutOfOrder = [](const ClubPlayer& before, const ClubPlayer& after) {
        return isSamePlayer(before, after) || !stands(before, after);
    };
    return std::adjacent_find(players.begin(), players.end(), isOutOfOrder) == players.end();
}

ClubPart joined(ClubPart one, ClubPart other)
{
    if (one.targets != other.targets) throw ClubError("the parts were graded by different targets");
    const bool oneIsFirst =
        other.players.empty() || (!one.players.empty() && !stands(other.players.front(), one.players.front()));
    LevelSet lostByOne;
    LevelSet lostByOther;
    for (std::size_t index = 0; index < kLevels; ++index) {
        ClubLevel& level = one.levels.at(index);
        const ClubLevel& otherLevel = other.levels.at(index);
        std::string name = oneIsFirst ? level.name : otherLevel.name;
        level = betterOf(level, otherLevel, index, lostByOne, lostByOther);
        level.name = std::move(name);
    }
    takeFrom(one.players, lostByOne);
    takeFrom(other.players, lostByOther);
    one.players.insert(one.players.end(), std::make_move_iterator(other.players.begin()),
                       std::make_move_iterator(other.players.end()));
    sortPlayers(one.players);
    return one;
}

ClubTeam teamOf(const ClubPart& part)
{
    ClubTeam team;
    for (const ClubLevel& level : part.levels) {
        team.total = AddTime(team.total, level.time);
        team.hundredths += exactTime(level.time).value_or(0);
        ++team.grades[level.grade];
    }
    return team;
}

std::vector<std::string_view> winnersOf(const ClubPart& part, int level)
{
    std::vector<std::string_view> names;
    for (const ClubPlayer& player : part.players)
        if (player.won.test(static_cast<std::size_t>(level) - 1)) names.emplace_back(player.name);
    return names;
}

std::uint64_t targetsFingerprint(const ResultsState& targets)
{
    std::string text;
    for (int record = 1; record <= kTotalsRow; ++record)
        for (const Grade& grade : grades())
            if (grade.targets != nullptr) text.append((targets.*grade.targets)[record]).append(",");
    return fingerprint(text);
}

}  // namespace kavo
