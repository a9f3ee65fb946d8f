// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/levels.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// Bug-times of one player per level: times reached through a bug of a level, entered by hand. Empty
/// where there is none.
using BugTimes = OneBased<std::string, kLevels>;

/// `bugs.dat`: the entries of both players in the order entered, each "xx, yy:yy:yy" (level, time).
struct BugTimeEntries
{
    std::vector<std::string> player1;
    std::vector<std::string> player2;
};

/// A text whose first line is no "Player1" holds no entries. Throws RunTimeError(InputPastEnd) when the
/// text is empty or player 1's entries are not ended by "Player2"; the markers match in any case.
[[nodiscard]] BugTimeEntries parseBugTimes(std::string_view text);
[[nodiscard]] std::string formatBugTimes(const BugTimeEntries& entries);

/// Bug-times of both players by level.
struct BugTimesByLevel
{
    BugTimes player1;
    BugTimes player2;
};

/// As parseBugTimes, each entry stored by its level as soon as it is read, later ones over earlier ones.
/// Throws RunTimeError(SubscriptOutOfRange) on a level that is none of 1 to 54.
[[nodiscard]] BugTimesByLevel parseBugTimesByLevel(std::string_view text);

/// Whether a text is accepted as an entry: twelve characters with numbers where level, minutes, seconds
/// and hundredths stand. Separators and the level's range are not checked.
[[nodiscard]] bool isBugTimeEntry(std::string_view text);

[[nodiscard]] std::filesystem::path bugTimesFile(const std::filesystem::path& userFolder);

/// The entries in `bugs.dat`; none without a file. Throws as parseBugTimes does.
[[nodiscard]] BugTimeEntries readBugTimes(const std::filesystem::path& userFolder);

/// Rewrites `bugs.dat`, or deletes it when neither player has an entry.
void saveBugTimes(const std::filesystem::path& userFolder, const BugTimeEntries& entries);

}  // namespace kavo
