// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/best_ever.h"
#include "insight/club_files.h"
#include "insight/finding.h"
#include "insight/history_store.h"
#include "insight/next_grades.h"
#include "insight/progress.h"

#include <string>
#include <string_view>
#include <vector>

/// Answers to what the table does not show by itself, for scripts: each one object in UTF-8, ended by a line
/// feed. Times and gaps in numbers are whole hundredths of a second.
namespace kavo {

/// The first `limit` improvements; the counts within a gap are of all.
[[nodiscard]] std::string formatImprovementsJson(std::string_view player, const std::vector<Improvement>& improvements,
                                                 std::size_t limit);

[[nodiscard]] std::string formatHistoryJson(const HistoryStore& history, const std::vector<RememberedState>& states);

/// What has changed from one remembered state to another.
[[nodiscard]] std::string formatProgressJson(std::string_view from, std::string_view to, const Progress& progress);

[[nodiscard]] std::string formatBestEverJson(const BestEver& best, const ResultsState& targets);

[[nodiscard]] std::string formatClubJson(const ClubReading& reading);

[[nodiscard]] std::string formatFindingsJson(const Findings& findings);

}  // namespace kavo
