// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "insight/statistics_times.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The table of any number of players, one for each statistics file. It is put together from parts, each
/// of which knows some of the players: in whatever order and grouping parts are joined, the result is the
/// same.
namespace kavo {

using LevelSet = std::bitset<kLevels>;  ///< level n is bit n - 1

using GradeCounts = ByGrade<int>;  ///< levels per grade

/// A player. The same bytes under the same name are one player, however often they are met; files with the
/// same driver and other times are players of the same name.
struct ClubPlayer
{
    std::string name;
    std::string file;               ///< where it was read; of several places the first in byte order
    std::uint64_t fingerprint = 0;  ///< of the file's bytes
    std::string total;              ///< as the table shows player 1's
    Hundredths hundredths = 0;      ///< the exact total, a skipped level ten minutes
    GradeCounts grades{};
    LevelSet won;  ///< levels on which nobody of the part is faster; a tie is won by each of the tied

    bool operator==(const ClubPlayer&) const = default;
};

/// The best of a level.
struct ClubLevel
{
    std::string name;            ///< in the file of the first player of the table
    std::string time{kSkipped};  ///< "SKIPPED" when nobody has driven it
    TargetCategory grade = TargetCategory::Beginner;

    bool operator==(const ClubLevel&) const = default;
};

using ClubLevels = std::array<ClubLevel, kLevels>;  ///< level n at n - 1

/// A part of a club's table, which may be all of it.
struct ClubPart
{
    std::uint64_t targets = 0;        ///< fingerprint of the targets that the grades come from
    std::vector<ClubPlayer> players;  ///< the smallest total first, then by name
    ClubLevels levels;

    bool operator==(const ClubPart&) const = default;
};

/// Takes players in, one after the other, and makes a part of them.
class ClubCollector final
{
public:
    explicit ClubCollector(const ResultsState& targets);

    /// A player's statistics file, read from `file`. Throws RunTimeError(InvalidCall) where the text ends too
    /// early; whether it is a statistics file at all has been checked.
    void add(std::string_view text, std::string_view file);

    [[nodiscard]] ClubPart finish();

private:
    [[nodiscard]] ClubPlayer playerFrom(const StatisticsTimes& times, std::string_view text,
                                        std::string_view file) const;
    void compare(int level, const std::string& time);

    const ResultsState& m_targets;
    ClubPart m_part;
    std::array<std::vector<std::size_t>, kLevels> m_winners;  ///< places among the players
    std::size_t m_first = 0;                                  ///< place of the player whose level names are kept
};

/// Why a text is no part, or why two parts do not go together.
class ClubError final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Whether players stand in the order of the table, nobody twice.
[[nodiscard]] bool areInOrder(const std::vector<ClubPlayer>& players);

/// Both parts as one. Throws ClubError when they were graded by different targets.
[[nodiscard]] ClubPart joined(ClubPart one, ClubPart other);

/// What all players have reached together.
struct ClubTeam
{
    std::string total;  ///< as the table shows a team's: a level that nobody has driven adds nothing
    Hundredths hundredths = 0;
    GradeCounts grades{};
};

[[nodiscard]] ClubTeam teamOf(const ClubPart& part);

/// Names of the players who have won a level, in the order of the table.
[[nodiscard]] std::vector<std::string_view> winnersOf(const ClubPart& part, int level);

/// Stands for the targets in a part.
[[nodiscard]] std::uint64_t targetsFingerprint(const ResultsState& targets);

}  // namespace kavo
